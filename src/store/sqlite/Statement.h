// Prepared statements.

#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace zenivo::sqlite {

/// As what a value lies in the file.
enum class Stored {
  integer = SQLITE_INTEGER,
  real = SQLITE_FLOAT,
  text = SQLITE_TEXT,
  bytes = SQLITE_BLOB,
  null = SQLITE_NULL,
};

/// A prepared statement: parameters are bound from 1 on, rows are stepped through,
/// columns are read from 0 on.  Failing calls throw SqliteFailure.
class Statement {
 public:
  Statement(sqlite3* connection, std::string_view sql);

  void bindNull(int parameter);
  void bind(int parameter, std::int64_t value);
  void bind(int parameter, double value);
  /// Text and bytes must stay in place until the statement is reset.
  void bind(int parameter, std::string_view text);
  void bind(int parameter, std::span<const std::uint8_t> bytes);
  /// Hands an object to a table-valued function of the application; see ValueTable.h.
  void bindPointer(int parameter, const void* object, const char* type);

  /// Goes to the next row; false after the last.
  bool step();
  /// Runs a statement that gives no rows.
  void run();
  /// Makes the statement ready to run again; the bound values are let go.
  void reset();

  Stored stored(int column) const {
    return static_cast<Stored>(sqlite3_column_type(handle_.get(), column));
  }
  bool isNull(int column) const { return stored(column) == Stored::null; }
  std::int64_t integer(int column) const { return sqlite3_column_int64(handle_.get(), column); }
  double real(int column) const { return sqlite3_column_double(handle_.get(), column); }
  /// Valid until the next step.
  std::string_view text(int column) const;
  std::span<const std::uint8_t> bytes(int column) const;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  void check(int code, const char* doing) const;

  std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

}  // namespace zenivo::sqlite
