// Where the user stands in a large table.

#pragma once

#include <cstdint>
#include <string_view>

#include "foundation/UserDefaults.h"

namespace zenivo {

/// The settings under which a table keeps its position.
struct TablePositionKeys {
  std::string_view offsetX;
  std::string_view offsetY;
  std::string_view selectedRow;
  std::string_view selectedCol;
};

/// The first column and row in view, with fractions of a cell, and the cell selected.
struct TablePosition {
  float offsetX = 0;
  float offsetY = 0;
  std::int64_t selectedRow = 0;
  std::int64_t selectedCol = 0;

  /// The stored position, brought into a table of that many rows and columns.
  static TablePosition load(const UserDefaults& defaults, const TablePositionKeys& keys, int rows,
                            int columns);
  void save(UserDefaults& defaults, const TablePositionKeys& keys) const;

  friend bool operator==(const TablePosition&, const TablePosition&) = default;
};

}  // namespace zenivo
