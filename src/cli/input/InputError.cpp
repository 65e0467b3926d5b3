#include "cli/input/InputError.h"

#include <unicode/uchar.h>

#include "cli/input/Characters.h"

namespace zenivo::cli {

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
    if (c < 0 || !u_isprint(c)) {
      result += '?';
    } else {
      result += text.substr(start, next - start);
    }
  }
  return result + "\"";
}

}  // namespace zenivo::cli
