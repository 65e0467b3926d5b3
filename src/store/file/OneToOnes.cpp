#include "store/file/OneToOnes.h"

namespace zenivo {
namespace {

bool isOneToOneColumn(const PropertyDescription& property) {
  const auto* relationship = asRelationship(&property);
  return relationship != nullptr && relationship->storage == RelationshipStorage::column &&
         !relationship->inverseRelationship->isToMany();
}

}  // namespace

/// Partners in one-to-one relationships may be exchanged within one save, so that none
/// is taken while another row still holds it, all are let go first.
void OneToOnes::free() {
  for (const UpdatedRow& row : save_.request.updated) {
    for (const PropertyChange& change : row.changes) {
      if (!isOneToOneColumn(*change.property) || change.before.isNull()) continue;
      const sqlite::Connection::Lease statement = save_.connection.prepare(
          "UPDATE " + sqlName(tableName(row.id.entity())) + " SET " +
          sqlName(columnName(*change.property)) + " = NULL WHERE _id = ?1 AND _version = ?2");
      statement->bind(1, row.id.key());
      statement->bind(2, row.version);
      statement->run();
    }
  }
  for (const DeletedRow& row : save_.request.deleted) {
    for (const PropertyDescription* property : row.id.entity().relationships()) {
      if (!isOneToOneColumn(*property)) continue;
      const sqlite::Connection::Lease statement =
          save_.connection.prepare("UPDATE " + sqlName(tableName(row.id.entity())) + " SET " +
                                   sqlName(columnName(*property)) + " = NULL WHERE _id = ?1");
      statement->bind(1, row.id.key());
      statement->run();
    }
  }
}

/// A partner in a one-to-one relationship leaves the row that others gave it to.
void OneToOnes::take(const ObjectID& id, const PropertyDescription& property, const Value& value) {
  if (value.isNull() || !isOneToOneColumn(property)) return;
  const std::string table = sqlName(tableName(id.entity()));
  const std::string column = sqlName(columnName(property));
  ObjectID loser;
  {
    const sqlite::Connection::Lease holder = save_.connection.prepare(
        "SELECT _id, _entity FROM " + table + " WHERE " + column + " = ?1 AND _id <> ?2");
    holder->bind(1, save_.keyOf(value.objectID()));
    holder->bind(2, save_.keyOf(id));
    if (!holder->step()) return;
    loser = save_.tables.makeID(*save_.tables.numbers().entityOf(holder->integer(1)),
                                holder->integer(0));
  }
  if (save_.request.mergePolicy == MergePolicy::error) {
    save_.conflict(value.objectID(), "was given to another object");
  }
  const sqlite::Connection::Lease statement = save_.connection.prepare(
      "UPDATE " + table + " SET _version = _version + 1, " + column + " = NULL WHERE _id = ?1");
  statement->bind(1, loser.key());
  statement->run();
  save_.outcome.stripped.push_back(loser);
  save_.settled.push_back(loser);
}

}  // namespace zenivo
