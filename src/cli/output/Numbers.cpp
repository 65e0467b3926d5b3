#include "cli/output/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace zenivo::cli {

Json numberJson(float value) {
  if (!std::isfinite(value)) return nullptr;
  std::array<char, 32> text;
  const char* end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  double number = 0;
  std::from_chars(text.data(), end, number);
  return number;
}

}  // namespace zenivo::cli
