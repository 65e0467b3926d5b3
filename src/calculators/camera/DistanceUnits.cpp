#include "calculators/camera/DistanceUnits.h"

#include <fmt/format.h>

#include <cmath>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/Ladders.h"
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

float ratioToSmallerUnit(const std::vector<DistanceUnit>& units, std::size_t index) {
  return std::round(units[index].factor / units[index - 1].factor);
}

/// What is left below one unit, rounded to show.
struct Remainder {
  std::string text;      // empty when nothing is left to show
  bool carries = false;  // it rounded up to a whole unit
};

/// `rest` is a part of the unit at `index`; inches have fractions instead of a
/// smaller unit.
Remainder remainderOf(float rest, const std::vector<DistanceUnit>& units, std::size_t index) {
  if (index == 0) {
    const std::string fraction = DistanceUnitsManager::fractionInchesForValue(rest);
    return {fraction == "0" || fraction == "1" ? "" : fraction, fraction == "1"};
  }
  const float ratio = ratioToSmallerUnit(units, index);
  const float smaller = std::floor(rest * ratio + 0.5F);
  if (smaller == ratio) return {"", true};
  return {smaller == 0 ? "" : fmt::format("{:.0f}", smaller), false};
}

}  // namespace

DistanceUnitsManager::DistanceUnitsManager(UserDefaults& defaults)
    : defaults_(defaults),
      system_(systemFrom(defaults.integerForKey(settings::global_units))),
      units_(unitsOf(system_)) {}

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

NSNumberWithDistanceUnit::NSNumberWithDistanceUnit(float baseValue,
                                                   const std::optional<DistanceUnit>& minUnit,
                                                   const std::optional<DistanceUnit>& maxUnit,
                                                   const DistanceUnitsManager& manager)
    : manager_(&manager),
      unit_(manager.bestDistanceUnitForValue(baseValue, minUnit, maxUnit)),
      maxUnit_(maxUnit),
      value_(unit_ ? baseValue / unit_->factor : baseValue) {}

NSNumberWithDistanceUnit NSNumberWithDistanceUnit::numberWithFloat(
    float number, const DistanceUnitsManager& manager) {
  return {number, std::nullopt, std::nullopt, manager};
}

NSNumberWithDistanceUnit NSNumberWithDistanceUnit::numberWithFloat(
    float number, const DistanceUnit& unit, const DistanceUnitsManager& manager) {
  return {number * unit.factor, std::nullopt, std::nullopt, manager};
}

NSNumberWithDistanceUnit NSNumberWithDistanceUnit::numberWithFloat(
    float number, const std::optional<DistanceUnit>& minUnit,
    const std::optional<DistanceUnit>& maxUnit, const DistanceUnitsManager& manager) {
  return {number, minUnit, maxUnit, manager};
}

float NSNumberWithDistanceUnit::metersValue() const {
  const float baseValue = unit_ ? value_ * unit_->factor : value_;
  return manager_->currentUnits() == UnitSystem::imperial ? baseValue * kMetresPerFoot : baseValue;
}

std::string NSNumberWithDistanceUnit::formattedValueWithNumberOfDecimals(int decimals,
                                                                         int unitsLevels) const {
  if (!(value_ >= 0)) return "";
  if (std::isinf(value_)) return kInfinityText;
  if (unit_ && unitsLevels > 1 && manager_->currentUnits() == UnitSystem::imperial) {
    return splitText();
  }
  const std::string number = numberWithAtMost(decimals, value_);
  return unit_ ? fmt::format("{} {}", number, unit_->abbrName) : number;
}

std::string NSNumberWithDistanceUnit::splitText() const {
  const std::vector<DistanceUnit>& units = manager_->units();
  auto index = static_cast<std::size_t>(manager_->indexOfUnit(*unit_));
  float whole = std::trunc(value_);
  const Remainder remainder = remainderOf(value_ - whole, units, index);
  if (remainder.carries) {
    whole += 1;
    const bool mayGrow = index + 1 < units.size() && !(maxUnit_ && maxUnit_->name == unit_->name);
    if (mayGrow && whole == ratioToSmallerUnit(units, index + 1)) {
      whole = 1;
      ++index;
    }
  }
  const std::string& abbreviation = units[index].abbrName;
  if (remainder.text.empty()) return fmt::format("{:.0f} {}", whole, abbreviation);
  const std::string& smaller = units[index > 0 ? index - 1 : 0].abbrName;
  return fmt::format("{:.0f}{} {}{}", whole, abbreviation, remainder.text, smaller);
}

}  // namespace zenivo
