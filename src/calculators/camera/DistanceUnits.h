// The units of length in force, and lengths in the unit that suits their size.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/UserDefaults.h"

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

/// The system of units that the user chose, and its units.  The base unit is the
/// metre in the metric system and the foot in the imperial one.
class DistanceUnitsManager {
 public:
  /// Takes the system from the settings, where it also keeps later changes; a
  /// value that names none means metric.  The settings must outlive the manager.
  explicit DistanceUnitsManager(UserDefaults& defaults);

  UnitSystem currentUnits() const { return system_; }
  void setCurrentUnits(UnitSystem system);

  /// The units of the current system, from the smallest to the largest.
  const std::vector<DistanceUnit>& units() const { return units_; }

  /// Place of the unit in `units` by its name, -1 when it is not there.
  int indexOfUnit(const DistanceUnit& unit) const;

  std::optional<DistanceUnit> unitWithName(std::string_view name) const;

  /// The largest unit between the bounds (both included, by default the smallest
  /// and the largest) of which `value` base units still make 1 or more; the lower
  /// bound when there is none.  Nullopt when a bound is no current unit or the
  /// bounds are the wrong way round.
  std::optional<DistanceUnit> bestDistanceUnitForValue(
      float value, const std::optional<DistanceUnit>& minUnit = std::nullopt,
      const std::optional<DistanceUnit>& maxUnit = std::nullopt) const;

  /// The localised name of a system.
  static std::string distanceUnitToString(UnitSystem system);

  /// The nearest 1/32 of an inch as text in lowest terms: "0", "1/32", ..., "1".
  static std::string fractionInchesForValue(float value);

 private:
  UserDefaults& defaults_;
  UnitSystem system_;
  std::vector<DistanceUnit> units_;
};

/// A length with its unit, for display and entry.
class NSNumberWithDistanceUnit {
 public:
  /// `number` is in base units (metres or feet), or in `unit`.  It is converted to
  /// the best unit between the bounds (see bestDistanceUnitForValue); with impossible
  /// bounds it stays in base units and has no unit.
  /// The manager must outlive the number.
  static NSNumberWithDistanceUnit numberWithFloat(float number,
                                                  const DistanceUnitsManager& manager);
  static NSNumberWithDistanceUnit numberWithFloat(float number, const DistanceUnit& unit,
                                                  const DistanceUnitsManager& manager);
  static NSNumberWithDistanceUnit numberWithFloat(float number,
                                                  const std::optional<DistanceUnit>& minUnit,
                                                  const std::optional<DistanceUnit>& maxUnit,
                                                  const DistanceUnitsManager& manager);

  /// The number in `unit`.
  float floatValue() const { return value_; }
  const std::optional<DistanceUnit>& unit() const { return unit_; }

  float metersValue() const;

  /// The text, with at most `decimals` fraction digits.  In the imperial system and
  /// with more than one unit level it is split over the unit and the next smaller
  /// one (5' 6"), and inches into whole ones and a fraction; a remainder that rounds
  /// to nothing is left out, and one that rounds up to the unit is carried.
  /// Empty for a negative number and for none at all, "∞" for an infinite one.
  std::string formattedValueWithNumberOfDecimals(int decimals, int unitsLevels) const;

 private:
  NSNumberWithDistanceUnit(float baseValue, const std::optional<DistanceUnit>& minUnit,
                           const std::optional<DistanceUnit>& maxUnit,
                           const DistanceUnitsManager& manager);

  std::string splitText() const;

  const DistanceUnitsManager* manager_;
  std::optional<DistanceUnit> unit_;
  std::optional<DistanceUnit> maxUnit_;
  float value_;
};

}  // namespace zenivo
