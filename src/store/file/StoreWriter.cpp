#include "store/file/StoreWriter.h"

#include <algorithm>

#include "store/model/StoreError.h"
#include "store/sqlite/SqliteFailure.h"

namespace zenivo {
namespace {

bool isOneToOneColumn(const PropertyDescription& property) {
  const auto* relationship = asRelationship(&property);
  return relationship != nullptr && relationship->storage == RelationshipStorage::column &&
         !relationship->inverseRelationship->isToMany();
}

/// The relationship whose destination's entity has a column of its own; else nullptr.
const RelationshipDescription* polymorphicColumn(const PropertyDescription& property) {
  const auto* relationship = asRelationship(&property);
  const bool has = relationship != nullptr && isPolymorphic(*relationship->destinationEntity);
  return has ? relationship : nullptr;
}

}  // namespace

std::int64_t reserveKeys(sqlite::Connection& connection, std::size_t count) {
  const sqlite::Connection::Lease statement = connection.prepare(
      "UPDATE _metadata SET value = value + ?1 WHERE key = 'nextKey' RETURNING value");
  statement->bind(1, static_cast<std::int64_t>(count));
  if (!statement->step()) {
    throw StoreFailure(StoreErrorCode::damagedFile, "the store's sequence of keys is missing");
  }
  const std::int64_t next = statement->integer(0);
  while (statement->step()) {
  }
  return next - static_cast<std::int64_t>(count);
}

StoreWriter::StoreWriter(sqlite::StoreFile::Writing& transaction, const StoreTables& tables,
                         const SaveRequest& request)
    : transaction_(transaction), connection_(*transaction), tables_(tables), request_(request) {}

SaveOutcome StoreWriter::write() {
  assignKeys();
  freeOneToOnes();
  for (const InsertedRow& row : request_.inserted) insertRow(row.id, 1, *row.values);
  for (const UpdatedRow& row : request_.updated) updateRow(row);
  for (const MemberChange& change : request_.members) writeMembers(change);
  for (const OrderChange& change : request_.orders) writeOrder(change);
  // Last, since deleting a row reaches those that still refer to it.
  for (const DeletedRow& row : request_.deleted) deleted_.insert(row.id);
  for (const DeletedRow& row : request_.deleted) deleteRow(row);
  commit();
  return std::move(outcome_);
}

void StoreWriter::assignKeys() {
  ObjectIDs temporary;
  for (const InsertedRow& row : request_.inserted) {
    if (row.id.isTemporaryID()) temporary.push_back(row.id);
  }
  if (temporary.empty()) return;
  std::int64_t key = reserveKeys(connection_, temporary.size());
  outcome_.permanentIDs.reserve(temporary.size());
  for (const ObjectID& id : temporary) {
    outcome_.permanentIDs.emplace(id, tables_.makeID(id.entity(), key++));
  }
}

ObjectID StoreWriter::permanent(const ObjectID& id) const {
  if (!id.isTemporaryID()) return id;
  const auto found = outcome_.permanentIDs.find(id);
  if (found == outcome_.permanentIDs.end()) {
    throw StoreFailure(StoreErrorCode::invalidRequest,
                       "a relationship leads to an object that is not saved");
  }
  return found->second;
}

void StoreWriter::bindProperty(sqlite::Statement& statement, int parameter,
                               const Value& value) const {
  if (value.holds<ObjectID>()) {
    statement.bind(parameter, keyOf(value.objectID()));
  } else {
    bindValue(statement, parameter, value);
  }
}

/// Partners in one-to-one relationships may be exchanged within one save, so that none
/// is taken while another row still holds it, all are let go first.
void StoreWriter::freeOneToOnes() {
  for (const UpdatedRow& row : request_.updated) {
    for (const PropertyChange& change : row.changes) {
      if (!isOneToOneColumn(*change.property) || change.before.isNull()) continue;
      const sqlite::Connection::Lease statement = connection_.prepare(
          "UPDATE " + sqlName(tableName(row.id.entity())) + " SET " +
          sqlName(columnName(*change.property)) + " = NULL WHERE _id = ?1 AND _version = ?2");
      statement->bind(1, row.id.key());
      statement->bind(2, row.version);
      statement->run();
    }
  }
  for (const DeletedRow& row : request_.deleted) {
    for (const PropertyDescription* property : row.id.entity().relationships()) {
      if (!isOneToOneColumn(*property)) continue;
      const sqlite::Connection::Lease statement =
          connection_.prepare("UPDATE " + sqlName(tableName(row.id.entity())) + " SET " +
                              sqlName(columnName(*property)) + " = NULL WHERE _id = ?1");
      statement->bind(1, row.id.key());
      statement->run();
    }
  }
}

void StoreWriter::insertRow(const ObjectID& id, std::int64_t version,
                            const std::vector<Value>& values) {
  const std::vector<RowPlan::Field>& fields =
      tables_.plan(id.entity(), false).fields.at(&id.entity());
  for (const RowPlan::Field& field : fields) {
    takeOneToOne(id, *field.property, values[field.property->index]);
  }
  const sqlite::Connection::Lease statement = connection_.prepare(tables_.insertSql(id.entity()));
  statement->bind(1, keyOf(id));
  statement->bind(2, tables_.numbers().numberOf(id.entity()));
  statement->bind(3, version);
  for (const RowPlan::Field& field : fields) {
    const Value& value = values[field.property->index];
    bindProperty(*statement, field.column + 1, value);
    if (field.entityColumn >= 0 && !value.isNull()) {
      statement->bind(field.entityColumn + 1,
                      tables_.numbers().numberOf(value.objectID().entity()));
    }
  }
  statement->run();
  outcome_.versions[permanent(id)] = version;
}

void StoreWriter::updateRow(const UpdatedRow& row) {
  for (const PropertyChange& change : row.changes) {
    takeOneToOne(row.id, *change.property, change.after);
  }
  if (updateColumns(row.id, row.version, row.changes)) {
    outcome_.versions[row.id] = row.version + 1;
  } else {
    settle(row);
  }
}

/// False when the row is gone or has another version.
bool StoreWriter::updateColumns(const ObjectID& id, std::int64_t version,
                                const std::vector<PropertyChange>& changes) {
  std::string columns = "_version = _version + 1";
  int parameter = 3;
  for (const PropertyChange& change : changes) {
    columns += ", " + sqlName(columnName(*change.property)) + " = ?" + std::to_string(parameter++);
    if (const auto* relationship = polymorphicColumn(*change.property)) {
      columns +=
          ", " + sqlName(entityColumnName(*relationship)) + " = ?" + std::to_string(parameter++);
    }
  }
  const sqlite::Connection::Lease statement =
      connection_.prepare("UPDATE " + sqlName(tableName(id.entity())) + " SET " + columns +
                          " WHERE _id = ?1 AND _version = ?2");
  statement->bind(1, id.key());
  statement->bind(2, version);
  parameter = 3;
  for (const PropertyChange& change : changes) {
    bindProperty(*statement, parameter++, change.after);
    if (polymorphicColumn(*change.property) == nullptr) continue;
    if (!change.after.isNull()) {
      statement->bind(parameter, tables_.numbers().numberOf(change.after.objectID().entity()));
    }
    ++parameter;
  }
  statement->run();
  return connection_.changes() == 1;
}

/// The row is not as the context read it: the merge policy decides, per property.
void StoreWriter::settle(const UpdatedRow& row) {
  const std::vector<Row> found = rows({row.id});
  if (request_.mergePolicy == MergePolicy::error) {
    conflict(row.id, found.empty() ? "was deleted" : "was changed");
  }
  const bool storeTrumps = request_.mergePolicy == MergePolicy::mergeByPropertyStoreTrump;
  if (found.empty()) {
    if (storeTrumps) return outcome_.vanished.push_back(row.id);
    insertRow(row.id, row.version + 1, *row.values);
    settled_.push_back(row.id);
    return;
  }
  const Row& theirs = found.front();
  std::vector<PropertyChange> kept;
  for (const PropertyChange& change : row.changes) {
    const bool changedByThem = theirs.values[change.property->index] != change.before;
    if (!storeTrumps || !changedByThem) kept.push_back(change);
  }
  if (!kept.empty()) updateColumns(row.id, theirs.version, kept);
  settled_.push_back(row.id);
}

/// A partner in a one-to-one relationship leaves the row that others gave it to.
void StoreWriter::takeOneToOne(const ObjectID& id, const PropertyDescription& property,
                               const Value& value) {
  if (value.isNull() || !isOneToOneColumn(property)) return;
  const std::string table = sqlName(tableName(id.entity()));
  const std::string column = sqlName(columnName(property));
  ObjectID loser;
  {
    const sqlite::Connection::Lease holder = connection_.prepare(
        "SELECT _id, _entity FROM " + table + " WHERE " + column + " = ?1 AND _id <> ?2");
    holder->bind(1, keyOf(value.objectID()));
    holder->bind(2, keyOf(id));
    if (!holder->step()) return;
    loser = tables_.makeID(*tables_.numbers().entityOf(holder->integer(1)), holder->integer(0));
  }
  if (request_.mergePolicy == MergePolicy::error) {
    conflict(value.objectID(), "was given to another object");
  }
  const sqlite::Connection::Lease statement = connection_.prepare(
      "UPDATE " + table + " SET _version = _version + 1, " + column + " = NULL WHERE _id = ?1");
  statement->bind(1, loser.key());
  statement->run();
  outcome_.stripped.push_back(loser);
  settled_.push_back(loser);
}

void StoreWriter::deleteRow(const DeletedRow& row) {
  deleteReached(row.id);
  const std::string sql = "DELETE FROM " + sqlName(tableName(row.id.entity())) + " WHERE _id = ?1";
  if (row.version != kAnyVersion && request_.mergePolicy == MergePolicy::error) {
    const sqlite::Connection::Lease statement = connection_.prepare(sql + " AND _version = ?2");
    statement->bind(1, row.id.key());
    statement->bind(2, row.version);
    statement->run();
    if (connection_.changes() == 0 && exists(row.id)) conflict(row.id, "was changed");
    return;
  }
  const sqlite::Connection::Lease statement = connection_.prepare(sql);
  statement->bind(1, row.id.key());
  statement->run();
}

/// Others may have given the row something that its delete rules reach and that the
/// context does not know.
void StoreWriter::deleteReached(const ObjectID& id) {
  for (const RelationshipDescription* each : id.entity().relationships()) {
    if (each->deleteRule != DeleteRule::cascade) continue;
    const std::vector<ObjectIDs> lists = tables_.destinations(connection_, {id}, *each);
    for (const ObjectID& reached : lists.front()) {
      if (!deleted_.insert(reached).second) continue;
      outcome_.cascaded.push_back(reached);
      deleteRow({.id = reached, .version = kAnyVersion, .changes = {}});
    }
  }
}

bool StoreWriter::exists(const ObjectID& id) {
  const sqlite::Connection::Lease statement =
      connection_.prepare("SELECT 1 FROM " + sqlName(tableName(id.entity())) + " WHERE _id = ?1");
  statement->bind(1, keyOf(id));
  return statement->step();
}

void StoreWriter::conflict(const ObjectID& id, const char* what) const {
  Error error =
      makeStoreError(StoreErrorCode::conflict,
                     "an object of entity " + id.entity().name() + " " + what + " by another save");
  error.userInfo["object"] = id.URIRepresentation();
  throw StoreFailure(std::move(error));
}

void StoreWriter::writeMembers(const MemberChange& change) {
  const JoinTable pairs(*change.relationship);
  const RelationshipDescription& inverse = *change.relationship->inverseRelationship;
  const bool ownerHasEntity = isPolymorphic(*inverse.destinationEntity);
  const bool memberHasEntity = isPolymorphic(*change.relationship->destinationEntity);
  std::string names = pairs.ownerColumn + ", " + pairs.memberColumn;
  std::string marks = "?1, ?2";
  if (ownerHasEntity) names += ", " + sqlName(pairs.ownerColumn + ":entity");
  if (ownerHasEntity) marks += ", ?3";
  if (memberHasEntity) names += ", " + sqlName(pairs.memberEntityColumn);
  if (memberHasEntity) marks += ", ?4";
  const std::int64_t owner = keyOf(change.owner);
  for (const ObjectID& member : change.removed) {
    const sqlite::Connection::Lease statement =
        connection_.prepare("DELETE FROM " + sqlName(pairs.name) + " WHERE " + pairs.ownerColumn +
                            " = ?1 AND " + pairs.memberColumn + " = ?2");
    statement->bind(1, owner);
    statement->bind(2, keyOf(member));
    statement->run();
  }
  for (const ObjectID& member : change.added) {
    const sqlite::Connection::Lease statement = connection_.prepare(
        "INSERT OR IGNORE INTO " + sqlName(pairs.name) + "(" + names + ") VALUES(" + marks + ")");
    statement->bind(1, owner);
    statement->bind(2, keyOf(member));
    if (ownerHasEntity) statement->bind(3, tables_.numbers().numberOf(change.owner.entity()));
    if (memberHasEntity) statement->bind(4, tables_.numbers().numberOf(member.entity()));
    statement->run();
  }
}

}  // namespace zenivo
