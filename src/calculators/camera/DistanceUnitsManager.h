// The units of length in force.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calculators/camera/DistanceUnit.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// The system of units that the user chose, and its units.  The base unit is the
/// metre in the metric system and the foot in the imperial one.
class DistanceUnitsManager {
 public:
  /// Takes the system from the settings, where it also keeps later changes; a
  /// value that names none means metric.  The settings must outlive the manager.
  explicit DistanceUnitsManager(UserDefaults& defaults);

  /// The program's one manager, over zenivoUserDefaults().
  static DistanceUnitsManager& sharedInstance();

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

}  // namespace zenivo
