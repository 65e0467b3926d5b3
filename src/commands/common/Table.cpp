#include "commands/common/Table.h"

#include <algorithm>
#include <utility>

namespace zenivo::cli {

void Table::addRow(std::vector<std::string> cells, Style style) {
  cells.resize(columns_.size());
  rows_.push_back({std::move(cells), style});
}

std::vector<int> Table::widths() const {
  std::vector<int> result;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    int width = displayWidth(columns_[i].heading);
    for (const Row& row : rows_) width = std::max(width, displayWidth(row.cells[i]));
    result.push_back(width);
  }
  return result;
}

std::string Table::line(const std::vector<std::string>& cells,
                        const std::vector<int>& widths) const {
  std::string result;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const auto padding = static_cast<std::size_t>(widths[i] - displayWidth(cells[i]));
    const bool isRight = columns_[i].align == Align::right;
    result.append("  ").append(isRight ? padding : 0, ' ');
    result.append(cells[i]).append(isRight ? 0 : padding, ' ');
  }
  result.erase(result.find_last_not_of(' ') + 1);
  return result;
}

std::string Table::text(const Terminal& terminal) const {
  const std::vector<int> columnWidths = widths();
  std::vector<std::string> headings;
  for (const Column& column : columns_) headings.push_back(column.heading);
  std::string result;
  const std::string heading = line(headings, columnWidths);
  if (!heading.empty()) result += styled(heading, Style::faint, terminal) + "\n";
  for (const Row& row : rows_) {
    result += styled(line(row.cells, columnWidths), row.style, terminal) + "\n";
  }
  return result;
}

}  // namespace zenivo::cli
