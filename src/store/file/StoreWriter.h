// One save, written to the tables.

#pragma once

#include <unordered_set>
#include <vector>

#include "store/file/DanglingReferences.h"
#include "store/file/MemberWriter.h"
#include "store/file/OneToOnes.h"
#include "store/file/SaveInProgress.h"
#include "store/sqlite/StoreFile.h"

namespace zenivo {

/// Writes a save request within the transaction that it is given.  A row is changed
/// only if it still has the version that the request knows; otherwise the merge policy
/// decides.
class StoreWriter {
 public:
  StoreWriter(sqlite::StoreFile::Writing& transaction, const StoreTables& tables,
              const SaveRequest& request)
      : transaction_(transaction), save_(*transaction, tables, request) {}

  /// Writes and commits.  Throws StoreFailure for a conflict that the policy does not
  /// settle; then nothing is written.
  SaveOutcome write();

 private:
  void insertRow(const ObjectID& id, std::int64_t version, const std::vector<Value>& values);
  void updateRow(const UpdatedRow& row);
  bool updateColumns(const ObjectID& id, std::int64_t version,
                     const std::vector<PropertyChange>& changes);
  void settle(const UpdatedRow& row);
  void deleteRow(const DeletedRow& row);
  void deleteReached(const ObjectID& id);
  void commit();

  sqlite::StoreFile::Writing& transaction_;
  SaveInProgress save_;
  OneToOnes oneToOnes_{save_};
  MemberWriter members_{save_};
  DanglingReferences dangling_{save_};
  std::unordered_set<ObjectID> deleted_;
};

}  // namespace zenivo
