// Columns of text.

#pragma once

#include <string>
#include <vector>

#include "commands/common/Terminal.h"

namespace zenivo::cli {

enum class Align { left, right };

struct Column {
  std::string heading;
  Align align = Align::left;
};

/// A table whose columns are as wide as their widest cell, two blanks apart and
/// indented by two.  No line ends in blanks.
class Table {
 public:
  explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// Cells beyond the columns are left out, missing ones stay empty.
  void addRow(std::vector<std::string> cells, Style style = Style::plain);

  bool isEmpty() const { return rows_.empty(); }

  /// The lines, the headings first unless all are empty.
  std::string text(const Terminal& terminal) const;

 private:
  struct Row {
    std::vector<std::string> cells;
    Style style;
  };

  std::vector<int> widths() const;
  std::string line(const std::vector<std::string>& cells, const std::vector<int>& widths) const;

  std::vector<Column> columns_;
  std::vector<Row> rows_;
};

}  // namespace zenivo::cli
