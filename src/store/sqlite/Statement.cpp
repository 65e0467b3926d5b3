#include "store/sqlite/Statement.h"

#include "store/sqlite/SqliteFailure.h"

namespace zenivo::sqlite {

Statement::Statement(sqlite3* connection, std::string_view sql) {
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v3(connection, sql.data(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
  handle_.reset(prepared);
  if (code != SQLITE_OK) throwFailure(code, connection, std::string(sql));
}

void Statement::bindNull(int parameter) {
  check(sqlite3_bind_null(handle_.get(), parameter), "binding");
}

void Statement::bind(int parameter, std::int64_t value) {
  check(sqlite3_bind_int64(handle_.get(), parameter, value), "binding");
}

void Statement::bind(int parameter, double value) {
  check(sqlite3_bind_double(handle_.get(), parameter, value), "binding");
}

void Statement::bind(int parameter, std::string_view text) {
  // A null pointer would bind NULL, so empty text needs an address too.
  const char* start = text.data() != nullptr ? text.data() : "";
  check(
      sqlite3_bind_text64(handle_.get(), parameter, start, text.size(), SQLITE_STATIC, SQLITE_UTF8),
      "binding");
}

void Statement::bind(int parameter, std::span<const std::uint8_t> bytes) {
  const void* start = bytes.data() != nullptr ? bytes.data() : static_cast<const void*>("");
  check(sqlite3_bind_blob64(handle_.get(), parameter, start, bytes.size(), SQLITE_STATIC),
        "binding");
}

void Statement::bindPointer(int parameter, const void* object, const char* type) {
  check(sqlite3_bind_pointer(handle_.get(), parameter, const_cast<void*>(object), type, nullptr),
        "binding");
}

bool Statement::step() {
  const int code = sqlite3_step(handle_.get());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  throwFailure(code, sqlite3_db_handle(handle_.get()), sqlite3_sql(handle_.get()));
}

void Statement::run() {
  while (step()) {
  }
}

void Statement::reset() {
  sqlite3_reset(handle_.get());  // repeats the error of the last step, known already
  sqlite3_clear_bindings(handle_.get());
}

std::string_view Statement::text(int column) const {
  const auto* start = reinterpret_cast<const char*>(sqlite3_column_text(handle_.get(), column));
  if (start == nullptr) return {};
  return {start, static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column))};
}

std::span<const std::uint8_t> Statement::bytes(int column) const {
  const auto* start = static_cast<const std::uint8_t*>(sqlite3_column_blob(handle_.get(), column));
  if (start == nullptr) return {};
  return {start, static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column))};
}

void Statement::check(int code, const char* doing) const {
  if (code != SQLITE_OK) throwFailure(code, sqlite3_db_handle(handle_.get()), doing);
}

}  // namespace zenivo::sqlite
