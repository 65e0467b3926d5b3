#include "store/sqlite/SqlFunction.h"

#include "store/sqlite/Connection.h"
#include "store/sqlite/SqliteFailure.h"

namespace zenivo::sqlite {
namespace {

std::string_view textOf(sqlite3_value* value) {
  const auto* start = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return start == nullptr
             ? std::string_view()
             : std::string_view(start, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void runTextTest(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return sqlite3_result_int(context, 0);
  const auto test = reinterpret_cast<TextTest>(sqlite3_user_data(context));
  const bool holds =
      test(textOf(arguments[0]), textOf(arguments[1]), sqlite3_value_int(arguments[2]));
  sqlite3_result_int(context, holds ? 1 : 0);
}

}  // namespace

void addTextTest(Connection& connection, const char* name, TextTest test) {
  constexpr int kArguments = 3;
  const int code = sqlite3_create_function_v2(
      connection.handle(), name, kArguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY,
      reinterpret_cast<void*>(test), runTextTest, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) throwFailure(code, connection.handle(), name);
}

}  // namespace zenivo::sqlite
