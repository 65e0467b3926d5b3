#include "store/file/StoreTables.h"

#include <stdexcept>

#include "store/file/SqlQuery.h"

namespace zenivo {
namespace {

/// The members of a relationship of one owner, ?1, or of a list of them, with the
/// owner's place in the list.
std::string destinationsSql(const RelationshipDescription& relationship, bool single) {
  std::string table;
  std::string key;
  std::string member;
  std::string entity = "NULL";
  std::string order;
  if (relationship.storage == RelationshipStorage::column) {
    table = sqlName(tableName(*relationship.entity));
    key = "t._id";
    member = "t." + sqlName(columnName(relationship));
    if (isPolymorphic(*relationship.destinationEntity)) {
      entity = "t." + sqlName(entityColumnName(relationship));
    }
  } else if (relationship.storage == RelationshipStorage::inverseColumn) {
    const RelationshipDescription& column = *relationship.inverseRelationship;
    table = sqlName(tableName(*relationship.destinationEntity));
    key = "t." + sqlName(columnName(column));
    member = "t._id";
    // An index that leads to the members knows everything about them but their entity.
    if (isPolymorphic(*relationship.destinationEntity)) entity = "t._entity";
    if (relationship.isOrdered()) order = "t." + sqlName(orderColumnName(column)) + ", ";
  } else {
    const JoinTable pairs(relationship);
    table = sqlName(pairs.name);
    key = "t." + pairs.ownerColumn;
    member = "t." + pairs.memberColumn;
    if (isPolymorphic(*relationship.destinationEntity)) {
      entity = "t." + sqlName(pairs.memberEntityColumn);
    }
    if (relationship.isOrdered()) order = "t." + sqlName(pairs.orderColumn) + ", ";
  }
  const std::string what = member + ", " + entity + " FROM ";
  return single
             ? "SELECT 0, " + what + table + " t WHERE " + key + " = ?1 ORDER BY " + order + member
             : "SELECT v.position, " + what + "value_list(?1) v CROSS JOIN " + table + " t ON " +
                   key + " = v.value ORDER BY v.position, " + order + member;
}

std::string insertStatement(const EntityDescription& entity, const RowPlan& plan) {
  std::string names = "_id, _entity, _version";
  std::string marks = "?1, ?2, ?3";
  for (const RowPlan::Field& field : plan.fields.at(&entity)) {
    names += ", " + sqlName(columnName(*field.property));
    marks += ", ?" + std::to_string(field.column + 1);
    if (field.entityColumn < 0) continue;
    names += ", " + sqlName(entityColumnName(*asRelationship(field.property)));
    marks += ", ?" + std::to_string(field.entityColumn + 1);
  }
  return "INSERT INTO " + sqlName(tableName(entity)) + "(" + names + ") VALUES(" + marks + ")";
}

}  // namespace

StoreTables::StoreTables(std::shared_ptr<const ManagedObjectModel> model, EntityNumbers numbers,
                         const std::string* storeIdentifier)
    : model_(std::move(model)), numbers_(std::move(numbers)), storeIdentifier_(storeIdentifier) {
  for (const auto& entity : model_->entities()) {
    plans_.emplace(entity.get(),
                   Plans{RowPlan(*entity, false, numbers_), RowPlan(*entity, true, numbers_), {}});
    Plans& plans = plans_.at(entity.get());
    plans.insertSql = insertStatement(*entity, plans.exact);
    if (entity->superentity() != nullptr) continue;
    entityOfRowSql_ += entityOfRowSql_.empty() ? "" : " UNION ALL ";
    entityOfRowSql_ += "SELECT _entity FROM " + sqlName(tableName(*entity)) + " WHERE _id = ?1";
  }
}

const EntityDescription* StoreTables::entityOfRow(sqlite::Connection& connection,
                                                  std::int64_t key) const {
  const sqlite::Connection::Lease statement = connection.prepare(entityOfRowSql_);
  statement->bind(1, key);
  return statement->step() ? numbers_.entityOf(statement->integer(0)) : nullptr;
}

const EntityDescription& StoreTables::entityNamed(std::string_view name) const {
  const EntityDescription* entity = model_->entityNamed(name);
  if (entity == nullptr) {
    throw std::invalid_argument("there is no entity '" + std::string(name) + "'");
  }
  return *entity;
}

const RowPlan& StoreTables::plan(const EntityDescription& entity, bool includesSubentities) const {
  const Plans& plans = plans_.at(&entity);
  return includesSubentities ? plans.withSubentities : plans.exact;
}

Value StoreTables::readRelationship(const sqlite::Statement& statement,
                                    const RowPlan::Field& field) const {
  const std::int64_t key = statement.integer(field.column);
  if (key <= 0) return {};  // NULL reads as 0
  const EntityDescription* entity = asRelationship(field.property)->destinationEntity;
  if (field.entityColumn >= 0) {
    const EntityDescription* named = numbers_.entityOf(statement.integer(field.entityColumn));
    if (named != nullptr) entity = named;
  }
  return makeID(*entity, key);
}

Row StoreTables::readRow(const sqlite::Statement& statement, const Fields& fields,
                         ObjectID id) const {
  Row row{.id = id, .version = statement.integer(2), .values = {}};
  std::vector<Value>& values = row.values;
  values.reserve(id.entity().properties().size());
  for (const RowPlan::Field& field : fields) {
    values.resize(field.property->index);  // what the row does not hold stays empty
    const auto* attribute = asAttribute(field.property);
    values.push_back(attribute != nullptr ? readAttribute(statement, field.column, attribute->type)
                                          : readRelationship(statement, field));
  }
  values.resize(id.entity().properties().size());
  return row;
}

void StoreTables::fetch(sqlite::Connection& connection, const FetchRequest& request,
                        RowReceiver& receiver) const {
  const EntityDescription& entity = entityNamed(request.entityName);
  const RowPlan& rowPlan = plan(entity, request.includesSubentities);
  const SqlQuery query(request, entity, rowPlan,
                       request.includesPropertyValues ? QueryResult::rows : QueryResult::identities,
                       *storeIdentifier_);
  const sqlite::Connection::Lease statement = connection.prepare(query.sql());
  query.bind(*statement);
  while (statement->step()) {
    const EntityDescription* found = numbers_.entityOf(statement->integer(1));
    const std::int64_t key = statement->integer(0);
    const auto fields = rowPlan.fields.find(found);
    if (key <= 0 || fields == rowPlan.fields.end()) continue;  // no row of this program's
    const ObjectID id = makeID(*found, key);
    const bool wanted = receiver.found(id);
    if (!wanted || !request.includesPropertyValues) continue;
    receiver.take(readRow(*statement, fields->second, id));
  }
}

std::size_t StoreTables::count(sqlite::Connection& connection, const FetchRequest& request) const {
  const EntityDescription& entity = entityNamed(request.entityName);
  const SqlQuery query(request, entity, plan(entity, request.includesSubentities),
                       QueryResult::count, *storeIdentifier_);
  const sqlite::Connection::Lease statement = connection.prepare(query.sql());
  query.bind(*statement);
  return statement->step() ? static_cast<std::size_t>(statement->integer(0)) : 0;
}

void StoreTables::rows(sqlite::Connection& connection, const ObjectIDs& ids,
                       RowReceiver& receiver) const {
  std::map<const EntityDescription*, std::vector<Value>> keys;
  for (const ObjectID& id : ids) {
    if (id.storeIdentifier() == *storeIdentifier_) keys[&id.entity()].emplace_back(id.key());
  }
  for (const auto& [entity, ofEntity] : keys) {
    rowsOfEntity(connection, *entity, ofEntity, receiver);
  }
}

void StoreTables::rowsOfEntity(sqlite::Connection& connection, const EntityDescription& entity,
                               const std::vector<Value>& keys, RowReceiver& receiver) const {
  const RowPlan& rowPlan = plan(entity, false);
  const Fields& fields = rowPlan.fields.at(&entity);
  const std::string columns = "SELECT t0._id, t0._entity, t0._version" + rowPlan.columns + " FROM ";
  const std::string table = sqlName(tableName(entity)) + " t0";
  const BoundValues list(keys);
  const bool single = keys.size() == 1;
  const sqlite::Connection::Lease statement = connection.prepare(
      single ? columns + table + " WHERE t0._id = ?1"
             : columns + "value_list(?1) v CROSS JOIN " + table + " ON t0._id = v.value");
  if (single) {
    bindValue(*statement, 1, keys.front());
  } else {
    sqlite::bindValueList(*statement, 1, list);
  }
  while (statement->step()) {
    const std::int64_t key = statement->integer(0);
    if (key <= 0 || numbers_.entityOf(statement->integer(1)) != &entity) continue;
    const ObjectID id = makeID(entity, key);
    if (receiver.found(id)) receiver.take(readRow(*statement, fields, id));
  }
}

std::vector<ObjectIDs> StoreTables::destinations(
    sqlite::Connection& connection, const ObjectIDs& owners,
    const RelationshipDescription& relationship) const {
  std::vector<ObjectIDs> members(owners.size());
  std::vector<Value> keys;
  keys.reserve(owners.size());
  for (const ObjectID& owner : owners) {
    const bool isHere = owner.storeIdentifier() == *storeIdentifier_;
    keys.emplace_back(isHere ? owner.key() : std::int64_t{0});
  }
  const BoundValues list(keys);
  const bool single = owners.size() == 1;
  const sqlite::Connection::Lease statement =
      connection.prepare(destinationsSql(relationship, single));
  if (single) {
    bindValue(*statement, 1, keys.front());
  } else {
    sqlite::bindValueList(*statement, 1, list);
  }
  while (statement->step()) {
    const EntityDescription* entity = numbers_.entityOf(statement->integer(2));
    if (entity == nullptr) entity = relationship.destinationEntity;
    if (statement->integer(1) <= 0) continue;
    members[static_cast<std::size_t>(statement->integer(0))].push_back(
        makeID(*entity, statement->integer(1)));
  }
  return members;
}

}  // namespace zenivo
