// The calculators' texts.

#pragma once

#include <string>
#include <string_view>

#include "foundation/LocalizedString.h"
#include "foundation/NumberFormatter.h"

namespace zenivo {

/// Stands where there is no value to show.
inline constexpr const char* kNoValueText = "--";
inline constexpr const char* kInfinityText = "∞";

inline std::string commonText(std::string_view key) {
  return localizedString(key, "Common");
}

inline std::string calculatorText(std::string_view key) {
  return localizedString(key, "Calculators");
}

/// A number rounded half up, its decimals not padded with zeros.
inline std::string numberWithAtMost(int decimals, double value) {
  return NumberFormatter{.maximumFractionDigits = decimals}.stringFromNumber(value);
}

/// The same with zeros where there are fewer decimals.
inline std::string numberWithExactly(int decimals, double value) {
  return NumberFormatter{.minimumFractionDigits = decimals, .maximumFractionDigits = decimals}
      .stringFromNumber(value);
}

}  // namespace zenivo
