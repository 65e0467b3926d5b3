#include "calculators/camera/DistanceUnitsManager.h"

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/InchesFraction.h"
#include "calculators/camera/NearestLookup.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

DistanceUnit unitOf(const char* nameKey, const std::optional<std::string>& abbreviation,
                    float factor, bool allowsDecimals) {
  return {commonText(nameKey), abbreviation, factor, allowsDecimals};
}

std::vector<DistanceUnit> unitsOf(UnitSystem system) {
  if (system == UnitSystem::imperial) {
    return {unitOf("unit_abbr_in", "\"", kFeetPerInch, false),
            unitOf("unit_abbr_ft", "'", 1, false),
            unitOf("unit_abbr_mi", std::nullopt, 5280, false)};
  }
  return {unitOf("unit_abbr_mm", std::nullopt, 0.001F, true),
          unitOf("unit_abbr_cm", std::nullopt, 0.01F, true),
          unitOf("unit_abbr_m", std::nullopt, 1, true),
          unitOf("unit_abbr_km", std::nullopt, 1000, true)};
}

UnitSystem systemFrom(std::int64_t setting) {
  return setting == 1 ? UnitSystem::imperial : UnitSystem::metric;
}

}  // namespace

DistanceUnitsManager::DistanceUnitsManager(UserDefaults& defaults)
    : defaults_(defaults),
      system_(systemFrom(defaults.integerForKey(settings::global_units))),
      units_(unitsOf(system_)) {}

DistanceUnitsManager& DistanceUnitsManager::sharedInstance() {
  static DistanceUnitsManager manager(zenivoUserDefaults());
  return manager;
}

void DistanceUnitsManager::setCurrentUnits(UnitSystem system) {
  if (system == system_) return;
  system_ = system;
  units_ = unitsOf(system);
  defaults_.setInteger(static_cast<int>(system), settings::global_units);
  defaults_.synchronize();
}

int DistanceUnitsManager::indexOfUnit(const DistanceUnit& unit) const {
  for (std::size_t i = 0; i < units_.size(); ++i) {
    if (units_[i].name == unit.name) return static_cast<int>(i);
  }
  return -1;
}

std::optional<DistanceUnit> DistanceUnitsManager::unitWithName(std::string_view name) const {
  for (const DistanceUnit& unit : units_) {
    if (unit.name == name) return unit;
  }
  return std::nullopt;
}

std::optional<DistanceUnit> DistanceUnitsManager::bestDistanceUnitForValue(
    float value, const std::optional<DistanceUnit>& minUnit,
    const std::optional<DistanceUnit>& maxUnit) const {
  const int first = minUnit ? indexOfUnit(*minUnit) : 0;
  const int last = maxUnit ? indexOfUnit(*maxUnit) : static_cast<int>(units_.size()) - 1;
  if (first < 0 || last < 0 || first > last) return std::nullopt;
  int best = first;
  for (int i = first; i <= last; ++i) {
    if (value / units_[static_cast<std::size_t>(i)].factor >= 1) best = i;
  }
  return units_[static_cast<std::size_t>(best)];
}

std::string DistanceUnitsManager::distanceUnitToString(UnitSystem system) {
  const char* key =
      system == UnitSystem::imperial ? "unit_distance_imperial_name" : "unit_distance_metrics_name";
  return commonText(key);
}

std::string DistanceUnitsManager::fractionInchesForValue(float value) {
  return nearestElement(InchesFraction::table(), value, &InchesFraction::decimalValue).fraction;
}

}  // namespace zenivo
