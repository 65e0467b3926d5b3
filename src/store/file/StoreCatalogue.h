// What a store file says about itself.

#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "store/model/ManagedObjectModel.h"
#include "store/model/ModelText.h"
#include "store/sqlite/Connection.h"

namespace zenivo {

/// The layout of the file that this program writes; it reads the ones before too.
inline constexpr int kStoreFormat = 2;

/// An entity as the store knows it.
struct CatalogueEntity {
  std::int64_t number = 0;  ///< by which rows name it
  std::string name;
  Data storedHash;
  std::string description;  ///< see ModelText.h

  /// The description read.  Throws StoreFailure when it cannot be.
  EntityRecord record() const;
};

struct StoreCatalogue {
  int format = kStoreFormat;
  std::string identifier;
  std::int64_t saves = 0;  ///< and migrations, since the store was made
  std::vector<CatalogueEntity> entities;
  std::map<std::string, Value> values;  ///< of the application

  const CatalogueEntity* entityNamed(std::string_view name) const;
  std::map<std::string, Data> entityVersionHashes() const;
  /// Whether its rows can be read and written by the model's names and types.
  bool isOfVersion(const ManagedObjectModel& model) const;
  /// Whether its tables are those that the model would make today.
  bool isUpToDate(const ManagedObjectModel& model) const;
};

/// True for a file in which nothing was ever made.
bool isEmptyDatabase(sqlite::Connection& connection);

/// Throws StoreFailure when the catalogue is missing or of a later format.
StoreCatalogue readCatalogue(sqlite::Connection& connection);

/// Makes the tables of an empty store; within a transaction.
void makeStore(sqlite::Connection& connection, const ManagedObjectModel& model,
               const std::string& identifier);

/// How many saves and migrations the store has seen.
std::int64_t saveCount(sqlite::Connection& connection);
/// Counts one more, within its transaction; how many there are with it.
std::int64_t countSave(sqlite::Connection& connection);

/// Writes the model's entities into the catalogue: known ones keep their numbers.
void writeEntities(sqlite::Connection& connection, const ManagedObjectModel& model);

/// The columns of a table; none where there is no such table.
std::set<std::string> columnsOf(sqlite::Connection& connection, const std::string& table);

/// Replaces the application's values.
void writeValues(sqlite::Connection& connection, const std::map<std::string, Value>& values);

}  // namespace zenivo
