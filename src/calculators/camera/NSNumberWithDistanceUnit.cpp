#include "calculators/camera/NSNumberWithDistanceUnit.h"

#include <fmt/format.h>

#include <cmath>

#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

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
