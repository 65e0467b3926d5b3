#include "store/file/SaveInProgress.h"

#include "store/model/StoreError.h"

namespace zenivo {
namespace {

/// Keeps the rows that it is given.
class RowCollector : public RowReceiver {
 public:
  bool found(const ObjectID&) override { return true; }
  void take(Row&& row) override { rows.push_back(std::move(row)); }
  std::vector<Row> rows;
};

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

void SaveInProgress::assignKeys() {
  ObjectIDs temporary;
  for (const InsertedRow& row : request.inserted) {
    if (row.id.isTemporaryID()) temporary.push_back(row.id);
  }
  if (temporary.empty()) return;
  std::int64_t key = reserveKeys(connection, temporary.size());
  outcome.permanentIDs.reserve(temporary.size());
  for (const ObjectID& id : temporary) {
    outcome.permanentIDs.emplace(id, tables.makeID(id.entity(), key++));
  }
}

ObjectID SaveInProgress::permanent(const ObjectID& id) const {
  if (!id.isTemporaryID()) return id;
  const auto found = outcome.permanentIDs.find(id);
  if (found == outcome.permanentIDs.end()) {
    throw StoreFailure(StoreErrorCode::invalidRequest,
                       "a relationship leads to an object that is not saved");
  }
  return found->second;
}

void SaveInProgress::bindProperty(sqlite::Statement& statement, int parameter,
                                  const Value& value) const {
  if (value.holds<ObjectID>()) {
    statement.bind(parameter, keyOf(value.objectID()));
  } else {
    bindValue(statement, parameter, value);
  }
}

std::vector<Row> SaveInProgress::rows(const ObjectIDs& ids) {
  RowCollector collector;
  tables.rows(connection, ids, collector);
  return std::move(collector.rows);
}

bool SaveInProgress::exists(const ObjectID& id) {
  const sqlite::Connection::Lease statement =
      connection.prepare("SELECT 1 FROM " + sqlName(tableName(id.entity())) + " WHERE _id = ?1");
  statement->bind(1, keyOf(id));
  return statement->step();
}

void SaveInProgress::conflict(const ObjectID& id, const char* what) const {
  Error error =
      makeStoreError(StoreErrorCode::conflict,
                     "an object of entity " + id.entity().name() + " " + what + " by another save");
  error.userInfo["object"] = id.URIRepresentation();
  throw StoreFailure(std::move(error));
}

}  // namespace zenivo
