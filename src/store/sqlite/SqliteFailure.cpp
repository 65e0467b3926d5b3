#include "store/sqlite/SqliteFailure.h"

#include <sqlite3.h>

namespace zenivo::sqlite {

void throwFailure(int code, sqlite3* connection, const std::string& doing) {
  const bool reported = connection != nullptr && sqlite3_errcode(connection) == (code & 0xff);
  const int extended = reported ? sqlite3_extended_errcode(connection) : code;
  const char* message = reported ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
  throw SqliteFailure(extended, std::string(message) + " (" + doing + ")");
}

}  // namespace zenivo::sqlite
