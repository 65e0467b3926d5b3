// Walking UTF-8 text.

#pragma once

#include <unicode/utf8.h>

#include <cstddef>
#include <string_view>

namespace zenivo {

inline bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Reads the character at `place`, which must be inside the text, and steps
/// past it; negative for bytes that are no character.
inline UChar32 nextCharacter(std::string_view text, std::size_t& place) {
  UChar32 character = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"  // in the macro's arithmetic on bytes
  U8_NEXT(text.data(), place, text.size(), character);
#pragma GCC diagnostic pop
  return character;
}

}  // namespace zenivo
