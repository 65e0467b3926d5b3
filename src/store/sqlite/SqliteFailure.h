// The exception by which a failing SQLite call unwinds to its caller.

#pragma once

#include <string>

#include "store/model/StoreError.h"

struct sqlite3;

namespace zenivo::sqlite {

/// A call of SQLite that failed: what it means in one sentence, with SQLite's own words
/// under "sqlite" for the log.
class SqliteFailure : public StoreFailure {
 public:
  SqliteFailure(int extendedCode, const std::string& words);

  /// A row refers to one that is not there.
  bool isForeignKeyFailure() const;
  /// What SQLite keeps beside a file in WAL mode cannot be made or written.
  bool lacksCompanions() const;
  /// The statement and the tables do not fit each other.
  bool isOfSchema() const;

 private:
  int extendedCode_;
};

/// Throws what the connection reports for a call that answered `code`.
[[noreturn]] void throwFailure(int code, sqlite3* connection, const std::string& doing);

}  // namespace zenivo::sqlite
