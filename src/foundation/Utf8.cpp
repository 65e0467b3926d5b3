#include "foundation/Utf8.h"

#include <unicode/utf8.h>

namespace zenivo {
namespace {

/// Reads the character at `place` and steps over it: at least one byte.
bool allowedAt(std::string_view text, std::size_t& place) {
  UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
  U8_NEXT(text.data(), place, text.size(), character);
#pragma GCC diagnostic pop
  if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
  return character != 0xFFFE && character != 0xFFFF;
}

}  // namespace

std::size_t firstByteNotAllowedInXml(std::string_view text) {
  for (std::size_t place = 0; place < text.size();) {
    const std::size_t start = place;
    if (!allowedAt(text, place)) return start;
  }
  return std::string_view::npos;
}

}  // namespace zenivo
