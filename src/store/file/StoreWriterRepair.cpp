// The parts of StoreWriter that put members in order and that look after relationships
// to rows which others deleted.

#include <algorithm>
#include <unordered_map>

#include "store/file/StoreWriter.h"
#include "store/model/StoreError.h"
#include "store/sqlite/SqliteFailure.h"

namespace zenivo {
namespace {

/// Where the places of an ordered relationship's members are kept.
struct OrderColumn {
  explicit OrderColumn(const RelationshipDescription& relationship) {
    if (relationship.storage == RelationshipStorage::inverseColumn) {
      const RelationshipDescription& column = *relationship.inverseRelationship;
      table = sqlName(tableName(*relationship.destinationEntity));
      owner = sqlName(columnName(column));
      member = "_id";
      order = sqlName(orderColumnName(column));
    } else {
      const JoinTable pairs(relationship);
      table = sqlName(pairs.name);
      owner = pairs.ownerColumn;
      member = pairs.memberColumn;
      order = sqlName(pairs.orderColumn);
    }
  }

  std::string table;
  std::string owner;
  std::string member;
  std::string order;
};

/// Keeps the rows that it is given.
class RowCollector : public RowReceiver {
 public:
  bool found(const ObjectID&) override { return true; }
  void take(Row&& row) override { rows.push_back(std::move(row)); }
  std::vector<Row> rows;
};

}  // namespace

std::vector<Row> StoreWriter::rows(const ObjectIDs& ids) {
  RowCollector collector;
  tables_.rows(connection_, ids, collector);
  return std::move(collector.rows);
}

/// Places only have to grow from member to member, so those that do already stay.
void StoreWriter::writeOrder(const OrderChange& change) {
  const OrderColumn columns(*change.relationship);
  const std::int64_t owner = keyOf(change.owner);
  std::unordered_map<std::int64_t, std::int64_t> places;
  {
    const sqlite::Connection::Lease statement =
        connection_.prepare("SELECT " + columns.member + ", " + columns.order + " FROM " +
                            columns.table + " WHERE " + columns.owner + " = ?1");
    statement->bind(1, owner);
    while (statement->step()) places[statement->integer(0)] = statement->integer(1);
  }
  std::int64_t last = 0;
  for (const ObjectID& member : change.members) {
    const auto place = places.find(keyOf(member));
    if (place == places.end()) continue;  // others took it out
    if (place->second > last) {
      last = place->second;
      continue;
    }
    const sqlite::Connection::Lease statement =
        connection_.prepare("UPDATE " + columns.table + " SET " + columns.order + " = ?3 WHERE " +
                            columns.owner + " = ?1 AND " + columns.member + " = ?2");
    statement->bind(1, owner);
    statement->bind(2, place->first);
    statement->bind(3, ++last);
    statement->run();
  }
}

/// A save that is on the disk must not fail any more, so everything is read before.
void StoreWriter::commit() {
  try {
    outcome_.merged = rows(settled_);
    transaction_.commit();
  } catch (const sqlite::SqliteFailure& failure) {
    // Foreign keys are checked at the end: a row refers to one that others deleted.
    if (!failure.isForeignKeyFailure()) throw;
    if (request_.mergePolicy == MergePolicy::error) {
      throw StoreFailure(StoreErrorCode::conflict,
                         "an object that a relationship leads to was deleted by another save");
    }
    clearDanglingColumns();
    clearDanglingMembers();
    outcome_.merged = rows(settled_);
    transaction_.commit();
  }
}

void StoreWriter::clearDanglingColumns() {
  for (const InsertedRow& row : request_.inserted) {
    clearDanglingColumnsOf(permanent(row.id), *row.values);
  }
  for (const UpdatedRow& row : request_.updated) clearDanglingColumnsOf(row.id, *row.values);
}

void StoreWriter::clearDanglingColumnsOf(const ObjectID& id, const std::vector<Value>& values) {
  for (const RelationshipDescription* relationship : id.entity().relationships()) {
    const Value& value = values[relationship->index];
    if (value.isNull() || exists(value.objectID())) continue;
    const std::string column = sqlName(columnName(*relationship));
    const sqlite::Connection::Lease statement =
        connection_.prepare("UPDATE " + sqlName(tableName(id.entity())) + " SET " + column +
                            " = NULL WHERE _id = ?1 AND " + column + " = ?2");
    statement->bind(1, id.key());
    statement->bind(2, keyOf(value.objectID()));
    statement->run();
    settled_.push_back(id);
  }
}

void StoreWriter::clearDanglingMembers() {
  for (const MemberChange& change : request_.members) {
    const JoinTable pairs(*change.relationship);
    for (const ObjectID& member : change.added) {
      if (exists(change.owner) && exists(member)) continue;
      const sqlite::Connection::Lease statement =
          connection_.prepare("DELETE FROM " + sqlName(pairs.name) + " WHERE " + pairs.ownerColumn +
                              " = ?1 AND " + pairs.memberColumn + " = ?2");
      statement->bind(1, keyOf(change.owner));
      statement->bind(2, keyOf(member));
      statement->run();
      settled_.push_back(permanent(change.owner));
      settled_.push_back(permanent(member));
    }
  }
}

}  // namespace zenivo
