// What the parts of a save have in common.

#pragma once

#include <cstdint>
#include <vector>

#include "store/file/ObjectSource.h"
#include "store/file/StoreTables.h"
#include "store/sqlite/Connection.h"

namespace zenivo {

/// A save on its way into the tables: what was asked for, and what came of it so far.
class SaveInProgress {
 public:
  SaveInProgress(sqlite::Connection& toConnection, const StoreTables& ofTables,
                 const SaveRequest& asked)
      : connection(toConnection), tables(ofTables), request(asked) {}

  /// Gives inserted objects without a permanent identity one.
  void assignKeys();
  /// The identity under which the object is saved.
  ObjectID permanent(const ObjectID& id) const;
  std::int64_t keyOf(const ObjectID& id) const { return permanent(id).key(); }
  void bindProperty(sqlite::Statement& statement, int parameter, const Value& value) const;

  std::vector<Row> rows(const ObjectIDs& ids);
  bool exists(const ObjectID& id);
  /// Throws the failure of a conflict.
  [[noreturn]] void conflict(const ObjectID& id, const char* what) const;

  sqlite::Connection& connection;
  const StoreTables& tables;
  const SaveRequest& request;
  SaveOutcome outcome;
  ObjectIDs settled;  ///< rows that do not hold what the context thinks
};

/// Sets so many keys apart; the first of them.
std::int64_t reserveKeys(sqlite::Connection& connection, std::size_t count);

}  // namespace zenivo
