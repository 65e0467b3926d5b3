#include "store/model/StoreError.h"

#include <sqlite3.h>

#include <filesystem>

#include "store/sqlite/SqliteFailure.h"

namespace zenivo {
namespace {

StoreErrorCode codeOf(const sqlite::SqliteFailure& failure) {
  switch (failure.code()) {
    case SQLITE_NOTADB:
      return StoreErrorCode::notAStore;
    case SQLITE_CORRUPT:
      return StoreErrorCode::damagedFile;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return StoreErrorCode::notWritable;
    case SQLITE_CANTOPEN:
      return StoreErrorCode::missingFile;
    case SQLITE_FULL:
      return StoreErrorCode::diskFull;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return StoreErrorCode::busy;
    default:
      return StoreErrorCode::failedAccess;
  }
}

}  // namespace

Error makeStoreError(StoreErrorCode code, std::string description) {
  return {.domain = std::string(kStoreErrorDomain),
          .code = static_cast<std::int64_t>(code),
          .description = std::move(description)};
}

Error errorOfCurrentException() {
  try {
    throw;
  } catch (const StoreFailure& failure) {
    return failure.error();
  } catch (const sqlite::SqliteFailure& failure) {
    Error error = makeStoreError(codeOf(failure), failure.what());
    error.userInfo["sqliteCode"] = std::to_string(failure.extendedCode());
    return error;
  } catch (const std::invalid_argument& failure) {
    return makeStoreError(StoreErrorCode::invalidRequest, failure.what());
  } catch (const std::filesystem::filesystem_error& failure) {
    return makeStoreError(StoreErrorCode::failedAccess, failure.what());
  }
}

}  // namespace zenivo
