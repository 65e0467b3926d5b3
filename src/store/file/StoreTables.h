// The rows of a store as objects of its model.

#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/file/ObjectSource.h"
#include "store/file/StoreSchema.h"
#include "store/sqlite/Connection.h"

namespace zenivo {

/// How a model's objects lie in the tables of one store.  Unchangeable, so that all
/// threads share it; the connections are given to each call.
class StoreTables {
 public:
  StoreTables(std::shared_ptr<const ManagedObjectModel> model, EntityNumbers numbers,
              const std::string* storeIdentifier);

  const std::string& storeIdentifier() const { return *storeIdentifier_; }
  const EntityNumbers& numbers() const { return numbers_; }
  /// Throws std::invalid_argument for a name that the model does not have.
  const EntityDescription& entityNamed(std::string_view name) const;
  const RowPlan& plan(const EntityDescription& entity, bool includesSubentities) const;
  /// Inserts a row of the entity: _id, _entity and _version, then each column of its
  /// exact plan as the parameter of the next number.
  const std::string& insertSql(const EntityDescription& entity) const {
    return plans_.at(&entity).insertSql;
  }

  ObjectID makeID(const EntityDescription& entity, std::int64_t key) const {
    return ObjectID::makePermanentID(entity, storeIdentifier_, key);
  }

  /// The entity of the row with that key, of whatever table; nullptr when there is none.
  const EntityDescription* entityOfRow(sqlite::Connection& connection, std::int64_t key) const;

  void fetch(sqlite::Connection& connection, const FetchRequest& request,
             RowReceiver& receiver) const;
  std::size_t count(sqlite::Connection& connection, const FetchRequest& request) const;
  void rows(sqlite::Connection& connection, const ObjectIDs& ids, RowReceiver& receiver) const;
  std::vector<ObjectIDs> destinations(sqlite::Connection& connection, const ObjectIDs& owners,
                                      const RelationshipDescription& relationship) const;

 private:
  struct Plans {
    RowPlan exact;
    RowPlan withSubentities;
    std::string insertSql;
  };

  using Fields = std::vector<RowPlan::Field>;

  Row readRow(const sqlite::Statement& statement, const Fields& fields, ObjectID id) const;
  Value readRelationship(const sqlite::Statement& statement, const RowPlan::Field& field) const;
  void rowsOfEntity(sqlite::Connection& connection, const EntityDescription& entity,
                    const std::vector<Value>& keys, RowReceiver& receiver) const;

  const std::shared_ptr<const ManagedObjectModel> model_;
  const EntityNumbers numbers_;
  const std::string* const storeIdentifier_;
  std::map<const EntityDescription*, Plans> plans_;
  std::string entityOfRowSql_;
};

}  // namespace zenivo
