#include "input/InputError.h"

#include <fmt/format.h>
#include <unicode/uchar.h>

#include "input/Characters.h"

namespace zenivo {
namespace {

bool isPrintable(UChar32 c) {
  return c >= 0 && u_isprint(c);
}

}  // namespace

std::string inQuotes(std::string_view text) {
  constexpr int kLongest = 60;
  std::string result = "\"";
  std::size_t next = 0;
  for (int shown = 0; next < text.size(); ++shown) {
    if (shown == kLongest) {
      result += "…";
      break;
    }
    const std::size_t start = next;
    const UChar32 c = nextCharacter(text, next);
    if (!isPrintable(c)) {
      result += '?';
    } else {
      result += text.substr(start, next - start);
    }
  }
  return result + "\"";
}

void expectPrintable(std::string_view text, std::string_view what) {
  for (std::size_t next = 0; next < text.size();) {
    if (!isPrintable(nextCharacter(text, next))) {
      throw InputError(fmt::format("{} cannot hold control characters or broken UTF-8: {}", what,
                                   inQuotes(text)));
    }
  }
}

void expectUtf8(std::string_view text) {
  for (std::size_t next = 0; next < text.size();) {
    if (nextCharacter(text, next) < 0) {
      throw InputError(fmt::format("{} is broken UTF-8", inQuotes(text)));
    }
  }
}

}  // namespace zenivo
