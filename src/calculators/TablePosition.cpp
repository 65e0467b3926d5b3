#include "calculators/TablePosition.h"

#include <algorithm>

namespace zenivo {
namespace {

std::int64_t clampedIndex(std::int64_t index, int count) {
  return std::clamp<std::int64_t>(index, 0, std::max(count - 1, 0));
}

/// An offset that is not a number is the start.
float clampedOffset(float offset, int count) {
  const auto last = static_cast<float>(std::max(count - 1, 0));
  return offset > 0 ? std::min(offset, last) : 0;
}

}  // namespace

TablePosition TablePosition::load(const UserDefaults& defaults, const TablePositionKeys& keys,
                                  int rows, int columns) {
  return {clampedOffset(defaults.floatForKey(keys.offsetX), columns),
          clampedOffset(defaults.floatForKey(keys.offsetY), rows),
          clampedIndex(defaults.integerForKey(keys.selectedRow), rows),
          clampedIndex(defaults.integerForKey(keys.selectedCol), columns)};
}

void TablePosition::save(UserDefaults& defaults, const TablePositionKeys& keys) const {
  defaults.setFloat(offsetX, keys.offsetX);
  defaults.setFloat(offsetY, keys.offsetY);
  defaults.setInteger(selectedRow, keys.selectedRow);
  defaults.setInteger(selectedCol, keys.selectedCol);
}

}  // namespace zenivo
