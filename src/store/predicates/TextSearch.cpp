#include "store/predicates/TextSearch.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>

namespace zenivo {
namespace {

bool isAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<signed char>(c) >= 0; });
}

char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

icu::UnicodeString decomposed(const icu::UnicodeString& text) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* normalizer = icu::Normalizer2::getNFDInstance(status);
  if (U_FAILURE(status)) return text;
  icu::UnicodeString result = normalizer->normalize(text, status);
  return U_FAILURE(status) ? text : result;
}

icu::UnicodeString withoutMarks(const icu::UnicodeString& text) {
  const icu::UnicodeString parts = decomposed(text);
  icu::UnicodeString bare;
  for (int32_t at = 0; at < parts.length(); at = parts.moveIndex32(at, 1)) {
    const UChar32 character = parts.char32At(at);
    if (u_charType(character) != U_NON_SPACING_MARK) bare.append(character);
  }
  return bare;
}

}  // namespace

std::string foldedText(std::string_view text, TextFolding folding) {
  std::string folded(text);
  if (folding.isNone()) return folded;
  if (isAscii(text)) {
    if (folding.ignoresCase) std::ranges::transform(folded, folded.begin(), lowered);
    return folded;
  }
  icu::UnicodeString wide = icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<int32_t>(text.size())));
  // Composed and decomposed spellings of one text must end up alike.
  wide = folding.ignoresMarks ? withoutMarks(wide) : decomposed(wide);
  if (folding.ignoresCase) wide.foldCase();
  folded.clear();
  wide.toUTF8String(folded);
  return folded;
}

bool foldedTextMatches(std::string_view text, std::string_view sought, TextFolding folding,
                       bool atBeginning) {
  const std::string folded = folding.isNone() ? std::string() : foldedText(text, folding);
  const std::string_view within = folding.isNone() ? text : std::string_view(folded);
  return atBeginning ? within.starts_with(sought) : within.find(sought) != std::string_view::npos;
}

}  // namespace zenivo
