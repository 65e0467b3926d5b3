#include "foundation/ShortestDecimal.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zenivo {

double shortestDecimal(float value) {
  if (!std::isfinite(value)) return value;
  std::array<char, 64> text;
  const char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  double number = 0;
  std::from_chars(text.data(), end, number);
  // Rounded twice, the number might in theory narrow to a neighbour.
  return static_cast<float>(number) == value ? number : value;
}

}  // namespace zenivo
