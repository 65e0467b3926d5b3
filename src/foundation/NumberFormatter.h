// Numbers as decimal text, in English.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zenivo {

/// Writes and reads decimal numbers with a point, and commas between thousands
/// where asked for.  Rounds halves away from zero on the decimal that a reader
/// sees, the shortest that means the number: with two fraction digits 1.005
/// gives "1.01", although the nearest double lies below it.
struct NumberFormatter {
  int minimumFractionDigits = 0;
  int maximumFractionDigits = 0;  ///< where it is less than the minimum, the minimum
  bool usesGroupingSeparator = false;

  /// At least one integer digit; no sign on a zero; "∞" and "NaN".
  std::string stringFromNumber(double number) const;

  /// The number that the whole text means, nullopt for any other text.
  std::optional<double> numberFromString(std::string_view text) const;
};

}  // namespace zenivo
