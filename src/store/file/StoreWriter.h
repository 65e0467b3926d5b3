// One save, written to the tables.

#pragma once

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "store/file/ObjectSource.h"
#include "store/file/StoreTables.h"
#include "store/sqlite/StoreFile.h"

namespace zenivo {

/// Writes a save request within the transaction that it is given.  A row is changed
/// only if it still has the version that the request knows; otherwise the merge policy
/// decides.
class StoreWriter {
 public:
  StoreWriter(sqlite::StoreFile::Writing& transaction, const StoreTables& tables,
              const SaveRequest& request);

  /// Writes and commits.  Throws StoreFailure for a conflict that the policy does not
  /// settle; then nothing is written.
  SaveOutcome write();

 private:
  void assignKeys();
  void freeOneToOnes();
  void insertRow(const ObjectID& id, std::int64_t version, const std::vector<Value>& values);
  void updateRow(const UpdatedRow& row);
  bool updateColumns(const ObjectID& id, std::int64_t version,
                     const std::vector<PropertyChange>& changes);
  void settle(const UpdatedRow& row);
  void takeOneToOne(const ObjectID& id, const PropertyDescription& property, const Value& value);
  void deleteRow(const DeletedRow& row);
  void deleteReached(const ObjectID& id);
  void writeMembers(const MemberChange& change);
  void writeOrder(const OrderChange& change);
  void commit();
  void clearDanglingColumns();
  void clearDanglingColumnsOf(const ObjectID& id, const std::vector<Value>& values);
  void clearDanglingMembers();
  std::vector<Row> rows(const ObjectIDs& ids);
  bool exists(const ObjectID& id);
  void conflict(const ObjectID& id, const char* what) const;

  ObjectID permanent(const ObjectID& id) const;
  std::int64_t keyOf(const ObjectID& id) const { return permanent(id).key(); }
  void bindProperty(sqlite::Statement& statement, int parameter, const Value& value) const;

  sqlite::StoreFile::Writing& transaction_;
  sqlite::Connection& connection_;
  const StoreTables& tables_;
  const SaveRequest& request_;
  SaveOutcome outcome_;
  std::unordered_set<ObjectID> deleted_;
  ObjectIDs settled_;  // rows that do not hold what the context thinks
};

/// Sets so many keys apart; the first of them.
std::int64_t reserveKeys(sqlite::Connection& connection, std::size_t count);

}  // namespace zenivo
