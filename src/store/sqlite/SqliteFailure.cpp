#include "store/sqlite/SqliteFailure.h"

#include <fmt/format.h>
#include <sqlite3.h>

namespace zenivo::sqlite {
namespace {

struct Meaning {
  StoreErrorCode code;
  const char* sentence;
};

Meaning meaningOf(int code) {
  switch (code) {
    case SQLITE_NOTADB:
      return {StoreErrorCode::notAStore, "the file is no store"};
    case SQLITE_CORRUPT:
      return {StoreErrorCode::damagedFile, "the store is damaged"};
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {StoreErrorCode::notWritable, "the store may not be written"};
    case SQLITE_CANTOPEN:
      return {StoreErrorCode::missingFile, "the store cannot be opened"};
    case SQLITE_FULL:
      return {StoreErrorCode::diskFull, "the disk is full"};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {StoreErrorCode::busy, "another process keeps the store locked"};
    default:
      return {StoreErrorCode::failedAccess, "the store cannot be read or written"};
  }
}

Error errorOf(int extendedCode, const std::string& words) {
  const Meaning meaning = meaningOf(extendedCode & 0xff);
  Error error = makeStoreError(meaning.code, meaning.sentence);
  error.userInfo["sqlite"] = fmt::format("{} ({})", words, extendedCode);
  return error;
}

}  // namespace

SqliteFailure::SqliteFailure(int extendedCode, const std::string& words)
    : StoreFailure(errorOf(extendedCode, words)), extendedCode_(extendedCode) {}

bool SqliteFailure::isForeignKeyFailure() const {
  return extendedCode_ == SQLITE_CONSTRAINT_FOREIGNKEY;
}

bool SqliteFailure::lacksCompanions() const {
  switch (extendedCode_) {
    case SQLITE_IOERR_SHMOPEN:
    case SQLITE_IOERR_SHMSIZE:
    case SQLITE_IOERR_SHMMAP:
    case SQLITE_FULL:
      return true;
    default: {
      const int code = extendedCode_ & 0xff;
      return code == SQLITE_CANTOPEN || code == SQLITE_READONLY;
    }
  }
}

bool SqliteFailure::isOfSchema() const {
  const int code = extendedCode_ & 0xff;
  return code == SQLITE_ERROR || code == SQLITE_SCHEMA;
}

void throwFailure(int code, sqlite3* connection, const std::string& doing) {
  const bool reported = connection != nullptr && sqlite3_errcode(connection) == (code & 0xff);
  const int extended = reported ? sqlite3_extended_errcode(connection) : code;
  const char* message = reported ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
  throw SqliteFailure(extended, std::string(message) + ": " + doing);
}

}  // namespace zenivo::sqlite
