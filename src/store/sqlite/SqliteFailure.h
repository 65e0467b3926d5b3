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
  /// The file, or what SQLite keeps beside it, may not be opened or written.
  bool isForbidden() const;

 private:
  int extendedCode_;
};

/// Throws what the connection reports for a call that answered `code`.
[[noreturn]] void throwFailure(int code, sqlite3* connection, const std::string& doing);

}  // namespace zenivo::sqlite
