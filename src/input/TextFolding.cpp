#include "input/TextFolding.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <array>
#include <cstdint>

#include "input/Characters.h"

namespace zenivo {
namespace {

constexpr char32_t kAsciiEnd = 0x80;

/// Folded form of the ASCII characters, 0 for those that fall away.
constexpr auto kAsciiFolding = [] {
  std::array<char32_t, kAsciiEnd> table{};
  for (char32_t c = '0'; c <= '9'; ++c) table[c] = c;
  for (char32_t c = 'a'; c <= 'z'; ++c) table[c] = table[c - 'a' + 'A'] = c;
  return table;
}();

/// Latin letters that Unicode takes for letters of their own, as people type them who
/// have none of them on their keys.
std::u32string_view plainLetters(char32_t c) {
  switch (c) {
    case U'æ':
      return U"ae";
    case U'đ':
    case U'ð':
      return U"d";
    case U'ħ':
      return U"h";
    case U'ı':
      return U"i";
    case U'ł':
      return U"l";
    case U'ø':
      return U"o";
    case U'œ':
      return U"oe";
    case U'þ':
      return U"th";
    default:
      return {};
  }
}

std::u32string foldWithUnicode(char32_t c) {
  UErrorCode status = U_ZERO_ERROR;
  // NFKC_Casefold folds case and compatibility forms; what it composed is taken apart again.
  const icu::Normalizer2* casefold = icu::Normalizer2::getNFKCCasefoldInstance(status);
  const icu::Normalizer2* decompose = icu::Normalizer2::getNFKDInstance(status);
  std::u32string folded;
  if (U_FAILURE(status)) return folded;
  icu::UnicodeString text(static_cast<UChar32>(c));
  text = decompose->normalize(casefold->normalize(text, status), status);
  for (std::int32_t i = 0; i < text.length(); i = text.moveIndex32(i, 1)) {
    const UChar32 part = text.char32At(i);
    const std::uint32_t kind = U_GET_GC_MASK(part);
    const bool kept = (kind & (U_GC_L_MASK | U_GC_N_MASK)) != 0 ||
                      ((kind & U_GC_M_MASK) != 0 && u_getCombiningClass(part) == 0);
    if (!kept) continue;
    const auto letter = static_cast<char32_t>(part);
    const std::u32string_view plain = plainLetters(letter);
    folded += plain.empty() ? std::u32string_view(&letter, 1) : plain;
  }
  return folded;
}

}  // namespace

std::u32string_view TextFolder::foldCharacter(char32_t c) {
  if (c < kAsciiEnd) {
    const char32_t& folded = kAsciiFolding[c];
    return {&folded, folded == 0 ? std::size_t{0} : std::size_t{1}};
  }
  auto found = foldedCharacters_.find(c);
  if (found == foldedCharacters_.end()) {
    found = foldedCharacters_.emplace(c, foldWithUnicode(c)).first;
  }
  return found->second;
}

std::u32string TextFolder::fold(std::string_view text) {
  std::u32string folded;
  for (std::size_t next = 0; next < text.size();) {
    const UChar32 c = nextCharacter(text, next);
    if (c >= 0) folded += foldCharacter(static_cast<char32_t>(c));
  }
  return folded;
}

std::string TextFolder::foldToUtf8(std::string_view text) {
  std::string utf8;
  for (const char32_t c : fold(text)) {
    std::array<std::uint8_t, U8_MAX_LENGTH> bytes{};
    std::size_t size = 0;
    U8_APPEND_UNSAFE(bytes, size, c);
    utf8.append(bytes.begin(), bytes.begin() + size);
  }
  return utf8;
}

bool TextFolder::foldsTo(std::string_view text, std::u32string_view folded) {
  for (std::size_t next = 0; next < text.size();) {
    const UChar32 c = nextCharacter(text, next);
    if (c < 0) continue;
    const std::u32string_view part = foldCharacter(static_cast<char32_t>(c));
    if (!folded.starts_with(part)) return false;
    folded.remove_prefix(part.size());
  }
  return folded.empty();
}

}  // namespace zenivo
