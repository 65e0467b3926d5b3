// Comparing names as people type them.

#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace zenivo {

/// Folds names to what is compared: letters without case and accents, and
/// digits; spaces and punctuation fall away.  "Saint-Étienne" and "saint
/// etienne" fold alike, and "Tromsø" and "tromso".  Marks that are letters of their own in a script
/// (the vowel signs of Hindi or Thai) stay.  Keeps what it has folded, so one folder serves a long
/// search.
class TextFolder {
 public:
  std::u32string fold(std::string_view text);
  std::string foldToUtf8(std::string_view text);

  /// True when `text` folds to `folded`; stops at the first difference.
  bool foldsTo(std::string_view text, std::u32string_view folded);

 private:
  std::u32string_view foldCharacter(char32_t c);

  std::unordered_map<char32_t, std::u32string> foldedCharacters_;
};

}  // namespace zenivo
