// The exception by which a failing SQLite call unwinds to its caller.

#pragma once

#include <stdexcept>
#include <string>

struct sqlite3;

namespace zenivo::sqlite {

/// A call of SQLite that failed.  Never leaves the store layer.
class SqliteFailure : public std::runtime_error {
 public:
  SqliteFailure(int extendedCode, const std::string& message)
      : std::runtime_error(message), extendedCode_(extendedCode) {}

  /// SQLite's result code, with and without the detail in its upper bytes.
  int extendedCode() const { return extendedCode_; }
  int code() const { return extendedCode_ & 0xff; }

 private:
  int extendedCode_;
};

/// Throws what the connection reports for a call that answered `code`.
[[noreturn]] void throwFailure(int code, sqlite3* connection, const std::string& doing);

}  // namespace zenivo::sqlite
