// Finding text in text, as predicates do.

#pragma once

#include <string>
#include <string_view>

namespace zenivo {

/// What a search overlooks.
struct TextFolding {
  bool ignoresCase = false;
  bool ignoresMarks = false;  ///< accents and other diacritics

  bool isNone() const { return !ignoresCase && !ignoresMarks; }
};

/// The text with the differences that are overlooked taken out: folded texts compare
/// by their bytes.  Ill-formed UTF-8 reads as U+FFFD, unless nothing is overlooked.
std::string foldedText(std::string_view text, TextFolding folding);

/// Whether the text, folded, contains `sought`, or begins with it.
/// REQUIRES: `sought` is folded likewise.
bool foldedTextMatches(std::string_view text, std::string_view sought, TextFolding folding,
                       bool atBeginning);

}  // namespace zenivo
