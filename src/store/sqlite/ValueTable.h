// Lists of values as tables: "... IN (SELECT value FROM value_list(?))".

#pragma once

#include <cstddef>

#include "store/sqlite/SqlFunction.h"

namespace zenivo::sqlite {

class Connection;
class Statement;

/// A list that a statement can read like a table.  However long it is, the text of
/// the statement stays the same, so one prepared statement serves every length.
class ValueList {
 public:
  virtual ~ValueList() = default;
  virtual std::size_t size() const = 0;
  /// Gives the value at `index` as the result of a column.
  virtual void answer(const Result& result, std::size_t index) const = 0;
};

/// Makes `value_list(?)`, a table with the columns `value` and `position` (from 0),
/// known to the connection.
void addValueListTable(Connection& connection);

/// Binds a list as the argument of value_list; it must outlive the statement's run.
void bindValueList(Statement& statement, int parameter, const ValueList& list);

}  // namespace zenivo::sqlite
