// What a function or table of the program's own gives to a statement.

#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <span>
#include <string_view>

namespace zenivo::sqlite {

class Connection;

/// The value that SQLite asked for; NULL when none is given.  Text and bytes must stay in
/// place until the statement is reset.
class Result {
 public:
  explicit Result(sqlite3_context* context) : context_(context) {}

  void give(std::int64_t value) const { sqlite3_result_int64(context_, value); }
  void give(double value) const { sqlite3_result_double(context_, value); }
  void give(std::string_view text) const {
    sqlite3_result_text64(context_, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
  }
  void give(std::span<const std::uint8_t> bytes) const {
    sqlite3_result_blob64(context_, bytes.data(), bytes.size(), SQLITE_STATIC);
  }

 private:
  sqlite3_context* context_;
};

/// Whether a text stands in a relation to another, of which there are several kinds.
using TextTest = bool (*)(std::string_view text, std::string_view other, int kind);

/// Makes `name(text, other, kind)` known to the connection: 1 or 0, and 0 for no text.
void addTextTest(Connection& connection, const char* name, TextTest test);

}  // namespace zenivo::sqlite
