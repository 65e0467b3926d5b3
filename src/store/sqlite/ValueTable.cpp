#include "store/sqlite/ValueTable.h"

#include "store/sqlite/Connection.h"
#include "store/sqlite/SqliteFailure.h"

namespace zenivo::sqlite {
namespace {

constexpr char kPointerType[] = "zenivo value list";

enum Column { kValue, kPosition, kList };

struct Cursor {
  sqlite3_vtab_cursor base;  // first, as SQLite wants it
  const ValueList* list;
  std::size_t index;
};

Cursor& cursorOf(sqlite3_vtab_cursor* cursor) {
  return *reinterpret_cast<Cursor*>(cursor);
}

int connectTable(sqlite3* connection, void*, int, const char* const*, sqlite3_vtab** table,
                 char**) {
  const int code = sqlite3_declare_vtab(connection, "CREATE TABLE x(value, position, list HIDDEN)");
  if (code == SQLITE_OK) *table = new sqlite3_vtab{};
  return code;
}

int disconnectTable(sqlite3_vtab* table) {
  delete table;
  return SQLITE_OK;
}

/// The one plan there is: the list given as argument, walked in its order.
int planScan(sqlite3_vtab*, sqlite3_index_info* info) {
  for (int i = 0; i < info->nConstraint; ++i) {
    const auto& constraint = info->aConstraint[i];
    if (constraint.iColumn != kList || constraint.op != SQLITE_INDEX_CONSTRAINT_EQ) continue;
    if (!constraint.usable) return SQLITE_CONSTRAINT;
    info->aConstraintUsage[i].argvIndex = 1;
    info->aConstraintUsage[i].omit = 1;
    info->estimatedCost = 1;
    info->estimatedRows = 10;
    return SQLITE_OK;
  }
  return SQLITE_CONSTRAINT;
}

int openCursor(sqlite3_vtab*, sqlite3_vtab_cursor** cursor) {
  *cursor = &(new Cursor{})->base;
  return SQLITE_OK;
}

int closeCursor(sqlite3_vtab_cursor* cursor) {
  delete &cursorOf(cursor);
  return SQLITE_OK;
}

int startScan(sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value** arguments) {
  cursorOf(cursor).list =
      static_cast<const ValueList*>(sqlite3_value_pointer(arguments[0], kPointerType));
  cursorOf(cursor).index = 0;
  return SQLITE_OK;
}

int goOn(sqlite3_vtab_cursor* cursor) {
  ++cursorOf(cursor).index;
  return SQLITE_OK;
}

int isAtEnd(sqlite3_vtab_cursor* cursor) {
  const Cursor& at = cursorOf(cursor);
  return at.list == nullptr || at.index >= at.list->size();
}

int readColumn(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
  const Cursor& at = cursorOf(cursor);
  if (column == kValue) at.list->answer(Result(context), at.index);
  if (column == kPosition) sqlite3_result_int64(context, static_cast<sqlite3_int64>(at.index));
  return SQLITE_OK;
}

int readRowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* id) {
  *id = static_cast<sqlite3_int64>(cursorOf(cursor).index);
  return SQLITE_OK;
}

constexpr sqlite3_module makeModule() {
  sqlite3_module module{};  // no xCreate: the table exists without being created
  module.xConnect = connectTable;
  module.xDisconnect = disconnectTable;
  module.xBestIndex = planScan;
  module.xOpen = openCursor;
  module.xClose = closeCursor;
  module.xFilter = startScan;
  module.xNext = goOn;
  module.xEof = isAtEnd;
  module.xColumn = readColumn;
  module.xRowid = readRowId;
  return module;
}

constexpr sqlite3_module kModule = makeModule();

}  // namespace

void addValueListTable(Connection& connection) {
  const int code =
      sqlite3_create_module_v2(connection.handle(), "value_list", &kModule, nullptr, nullptr);
  if (code != SQLITE_OK) throwFailure(code, connection.handle(), "adding value_list");
}

void bindValueList(Statement& statement, int parameter, const ValueList& list) {
  statement.bindPointer(parameter, &list, kPointerType);
}

}  // namespace zenivo::sqlite
