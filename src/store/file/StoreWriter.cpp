#include "store/file/StoreWriter.h"

#include "store/model/StoreError.h"
#include "store/sqlite/SqliteFailure.h"

namespace zenivo {
namespace {

/// The relationship whose destination's entity has a column of its own; else nullptr.
const RelationshipDescription* polymorphicColumn(const PropertyDescription& property) {
  const auto* relationship = asRelationship(&property);
  const bool has = relationship != nullptr && isPolymorphic(*relationship->destinationEntity);
  return has ? relationship : nullptr;
}

}  // namespace

SaveOutcome StoreWriter::write() {
  save_.assignKeys();
  oneToOnes_.free();
  for (const InsertedRow& row : save_.request.inserted) insertRow(row.id, 1, *row.values);
  for (const UpdatedRow& row : save_.request.updated) updateRow(row);
  for (const MemberChange& change : save_.request.members) members_.writeMembers(change);
  for (const OrderChange& change : save_.request.orders) members_.writeOrder(change);
  // Last, since deleting a row reaches those that still refer to it.
  for (const DeletedRow& row : save_.request.deleted) deleted_.insert(row.id);
  for (const DeletedRow& row : save_.request.deleted) deleteRow(row);
  commit();
  return std::move(save_.outcome);
}

void StoreWriter::insertRow(const ObjectID& id, std::int64_t version,
                            const std::vector<Value>& values) {
  const std::vector<RowPlan::Field>& fields =
      save_.tables.plan(id.entity(), false).fields.at(&id.entity());
  for (const RowPlan::Field& field : fields) {
    oneToOnes_.take(id, *field.property, values[field.property->index]);
  }
  const sqlite::Connection::Lease statement =
      save_.connection.prepare(save_.tables.insertSql(id.entity()));
  statement->bind(1, save_.keyOf(id));
  statement->bind(2, save_.tables.numbers().numberOf(id.entity()));
  statement->bind(3, version);
  for (const RowPlan::Field& field : fields) {
    const Value& value = values[field.property->index];
    save_.bindProperty(*statement, field.column + 1, value);
    if (field.entityColumn >= 0 && !value.isNull()) {
      statement->bind(field.entityColumn + 1,
                      save_.tables.numbers().numberOf(value.objectID().entity()));
    }
  }
  statement->run();
  save_.outcome.versions[save_.permanent(id)] = version;
}

void StoreWriter::updateRow(const UpdatedRow& row) {
  for (const PropertyChange& change : row.changes) {
    oneToOnes_.take(row.id, *change.property, change.after);
  }
  if (updateColumns(row.id, row.version, row.changes)) {
    save_.outcome.versions[row.id] = row.version + 1;
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
      save_.connection.prepare("UPDATE " + sqlName(tableName(id.entity())) + " SET " + columns +
                               " WHERE _id = ?1 AND _version = ?2");
  statement->bind(1, id.key());
  statement->bind(2, version);
  parameter = 3;
  for (const PropertyChange& change : changes) {
    save_.bindProperty(*statement, parameter++, change.after);
    if (polymorphicColumn(*change.property) == nullptr) continue;
    if (!change.after.isNull()) {
      statement->bind(parameter, save_.tables.numbers().numberOf(change.after.objectID().entity()));
    }
    ++parameter;
  }
  statement->run();
  return save_.connection.changes() == 1;
}

/// The row is not as the context read it: the merge policy decides, per property.
void StoreWriter::settle(const UpdatedRow& row) {
  const std::vector<Row> found = save_.rows({row.id});
  if (save_.request.mergePolicy == MergePolicy::error) {
    save_.conflict(row.id, found.empty() ? "was deleted" : "was changed");
  }
  const bool storeTrumps = save_.request.mergePolicy == MergePolicy::mergeByPropertyStoreTrump;
  if (found.empty()) {
    if (storeTrumps) return save_.outcome.vanished.push_back(row.id);
    insertRow(row.id, row.version + 1, *row.values);
    save_.settled.push_back(row.id);
    return;
  }
  const Row& theirs = found.front();
  std::vector<PropertyChange> kept;
  for (const PropertyChange& change : row.changes) {
    const bool changedByThem = theirs.values[change.property->index] != change.before;
    if (!storeTrumps || !changedByThem) kept.push_back(change);
  }
  if (!kept.empty()) updateColumns(row.id, theirs.version, kept);
  save_.settled.push_back(row.id);
}

void StoreWriter::deleteRow(const DeletedRow& row) {
  deleteReached(row.id);
  const std::string sql = "DELETE FROM " + sqlName(tableName(row.id.entity())) + " WHERE _id = ?1";
  if (row.version != kAnyVersion && save_.request.mergePolicy == MergePolicy::error) {
    const sqlite::Connection::Lease statement =
        save_.connection.prepare(sql + " AND _version = ?2");
    statement->bind(1, row.id.key());
    statement->bind(2, row.version);
    statement->run();
    if (save_.connection.changes() == 0 && save_.exists(row.id))
      save_.conflict(row.id, "was changed");
    return;
  }
  const sqlite::Connection::Lease statement = save_.connection.prepare(sql);
  statement->bind(1, row.id.key());
  statement->run();
}

/// Others may have given the row something that its delete rules reach and that the
/// context does not know.
void StoreWriter::deleteReached(const ObjectID& id) {
  for (const RelationshipDescription* each : id.entity().relationships()) {
    if (each->deleteRule != DeleteRule::cascade) continue;
    const std::vector<ObjectIDs> lists = save_.tables.destinations(save_.connection, {id}, *each);
    for (const ObjectID& reached : lists.front()) {
      if (!deleted_.insert(reached).second) continue;
      save_.outcome.cascaded.push_back(reached);
      deleteRow({.id = reached, .version = kAnyVersion, .changes = {}});
    }
  }
}

/// A save that is on the disk must not fail any more, so everything is read before.
void StoreWriter::commit() {
  try {
    save_.outcome.merged = save_.rows(save_.settled);
    transaction_.commit();
  } catch (const sqlite::SqliteFailure& failure) {
    // Foreign keys are checked at the end: a row refers to one that others deleted.
    if (!failure.isForeignKeyFailure()) throw;
    if (save_.request.mergePolicy == MergePolicy::error) {
      throw StoreFailure(StoreErrorCode::conflict,
                         "an object that a relationship leads to was deleted by another save");
    }
    dangling_.clearColumns();
    dangling_.clearMembers();
    save_.outcome.merged = save_.rows(save_.settled);
    transaction_.commit();
  }
}

}  // namespace zenivo
