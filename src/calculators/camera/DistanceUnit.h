// Units of length that the user reads and types.

#pragma once

#include <optional>
#include <string>

namespace zenivo {

/// The two systems of units, by their number in the settings.
enum class UnitSystem { metric = 0, imperial = 1 };

inline constexpr float kMetresPerFoot = 0.3048F;
inline constexpr float kFeetPerMetre = 3.28084F;
inline constexpr float kFeetPerInch = 0.083333336F;

struct DistanceUnit {
  std::string name;            ///< localised; the identity of the unit
  std::string abbrName;        ///< as printed behind a number
  float factor = 1;            ///< base units (metres or feet) in one of it
  bool allowsDecimals = true;  ///< false where fractions are given in smaller units

  /// An absent abbreviation is the name.
  DistanceUnit(std::string nameOfUnit, const std::optional<std::string>& abbreviation,
               float factorOfUnit, bool decimals)
      : name(std::move(nameOfUnit)),
        abbrName(abbreviation.value_or(name)),
        factor(factorOfUnit),
        allowsDecimals(decimals) {}
};

}  // namespace zenivo
