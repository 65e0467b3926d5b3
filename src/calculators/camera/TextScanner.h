// Reading typed values from left to right.

#pragma once

#include <optional>
#include <string_view>

namespace zenivo {

/// A place in a text; blanks are passed over before whatever is asked for.
class TextScanner {
 public:
  explicit TextScanner(std::string_view text) : rest_(text) {}

  bool atEnd();

  /// Passes over the word when it comes next, letters in either case.  A word of letters
  /// must end there: "m" is not found in "mm".
  bool scan(std::string_view word);

  /// A decimal number without sign: "35", "2.8", "2,8", ".5", "1e6".  A comma before three
  /// digits, as in "3,500", is no decimal one and makes no number, unless a 0 stands before.
  std::optional<double> number();

  /// The two digits that come next, 00 to 59, when nothing follows them.
  std::optional<double> lastTwoDigits();

  /// A number with an optional fraction: "9", "9 1/3", "9 ⅓", "1/250", "½".
  std::optional<double> mixedNumber();

 private:
  void skipBlanks();
  std::optional<double> fraction();

  std::string_view rest_;
};

}  // namespace zenivo
