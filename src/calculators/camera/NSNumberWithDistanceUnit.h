// A length in the unit that suits its size.

#pragma once

#include <optional>
#include <string>

#include "calculators/camera/DistanceUnit.h"
#include "calculators/camera/DistanceUnitsManager.h"

namespace zenivo {

/// A length with its unit, for display and entry.
class NSNumberWithDistanceUnit {
 public:
  /// `number` is in base units (metres or feet), or in `unit`.  It is converted to
  /// the best unit between the bounds (see bestDistanceUnitForValue); with impossible
  /// bounds it stays in base units and has no unit.
  /// The manager must outlive the number.
  static NSNumberWithDistanceUnit numberWithFloat(
      float number, const DistanceUnitsManager& manager = DistanceUnitsManager::sharedInstance());
  static NSNumberWithDistanceUnit numberWithFloat(
      float number, const DistanceUnit& unit,
      const DistanceUnitsManager& manager = DistanceUnitsManager::sharedInstance());
  static NSNumberWithDistanceUnit numberWithFloat(
      float number, const std::optional<DistanceUnit>& minUnit,
      const std::optional<DistanceUnit>& maxUnit,
      const DistanceUnitsManager& manager = DistanceUnitsManager::sharedInstance());

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
