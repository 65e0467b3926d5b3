// What a store file says about itself.

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "store/model/ManagedObjectModel.h"
#include "store/sqlite/Connection.h"

namespace zenivo {

/// The layout of the file that this program writes and reads.
inline constexpr int kStoreFormat = 1;

/// An entity as the store knows it.
struct CatalogueEntity {
  std::int64_t number = 0;  ///< by which rows name it
  std::string name;
  Data versionHash;
  std::string description;  ///< see ModelText.h
};

struct StoreCatalogue {
  std::string identifier;
  std::vector<CatalogueEntity> entities;
  std::map<std::string, Value> values;  ///< of the application

  const CatalogueEntity* entityNamed(std::string_view name) const;
  std::map<std::string, Data> entityVersionHashes() const;
};

/// True for a file in which nothing was ever made.
bool isEmptyDatabase(sqlite::Connection& connection);

/// Throws StoreFailure when the catalogue is missing, or of a later format.
StoreCatalogue readCatalogue(sqlite::Connection& connection);

/// Makes the tables of an empty store; within a transaction.
void makeStore(sqlite::Connection& connection, const ManagedObjectModel& model,
               const std::string& identifier);

/// Writes the model's entities into the catalogue: known ones keep their numbers.
void writeEntities(sqlite::Connection& connection, const ManagedObjectModel& model);

/// Replaces the application's values.
void writeValues(sqlite::Connection& connection, const std::map<std::string, Value>& values);

}  // namespace zenivo
