#include "calculators/DepthTables.h"

#include <fmt/format.h>

#include <algorithm>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/Ladders.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

std::int64_t clampedIndex(std::int64_t index, int count) {
  return std::clamp<std::int64_t>(index, 0, std::max(count - 1, 0));
}

/// An offset that is not a number is the start.
float clampedOffset(float offset, int count) {
  const auto last = static_cast<float>(std::max(count - 1, 0));
  return offset > 0 ? std::min(offset, last) : 0;
}

constexpr LensKeys kDofTableLens{settings::dofTable_focalLength, settings::dofTable_teleconverter,
                                 settings::dofTable_teleconverter2};
constexpr TablePositionKeys kDofTablePosition{
    settings::dofTable_offsetX, settings::dofTable_offsetY, settings::dofTable_selectedRow,
    settings::dofTable_selectedCol};

/// Distances from one to another in equal steps.
struct Steps {
  int from;
  int to;
  int by;
};

constexpr float kNearDistances[] = {0.25F, 0.5F, 0.75F, 1,    1.5F, 2,   2.5F,
                                    3,     3.5F, 4,     4.5F, 5,    5.5F};
constexpr Steps kMetreSteps[] = {{6, 50, 1}, {60, 100, 10}, {150, 450, 50}, {500, 1000, 100}};
constexpr Steps kFootSteps[] = {{1, 50, 1}, {55, 100, 5}, {150, 500, 50}};

template <std::size_t Count>
void append(std::vector<float>& distances, const Steps (&steps)[Count], float unit) {
  for (const Steps& step : steps) {
    for (int n = step.from; n <= step.to; n += step.by) {
      distances.push_back(static_cast<float>(n) * unit);
    }
  }
}

constexpr TablePositionKeys kHyperfocalPosition{
    settings::hyperfocalTable_offsetX, settings::hyperfocalTable_offsetY,
    settings::hyperfocalTable_selectedRow, settings::hyperfocalTable_selectedCol};

}  // namespace

TablePosition TablePosition::load(const UserDefaults& defaults, const TablePositionKeys& keys,
                                  int rows, int columns) {
  return {clampedOffset(defaults.floatForKey(keys.offsetX), columns),
          clampedOffset(defaults.floatForKey(keys.offsetY), rows),
          clampedIndex(defaults.integerForKey(keys.selectedRow), rows),
          clampedIndex(defaults.integerForKey(keys.selectedCol), columns)};
}

void TablePosition::save(UserDefaults& defaults, const TablePositionKeys& keys) const {
  defaults.setFloat(offsetX, keys.offsetX);
  defaults.setFloat(offsetY, keys.offsetY);
  defaults.setInteger(selectedRow, keys.selectedRow);
  defaults.setInteger(selectedCol, keys.selectedCol);
}

DofTable::DofTable(const CalculatorEnvironment& environment) : CameraCalculator(environment) {}

std::vector<float> DofTable::standardSubjectDistances(UnitSystem units) {
  std::vector<float> distances;
  if (units == UnitSystem::imperial) {
    append(distances, kFootSteps, kMetresPerFoot);
  } else {
    distances.assign(std::begin(kNearDistances), std::end(kNearDistances));
    append(distances, kMetreSteps, 1);
  }
  return distances;
}

void DofTable::load() {
  loadCamera();
  dof_ = Dof();
  dof_.setCircleOfConfusion(camera() ? camera()->coc : 0);
  dof_.setIsFixedFocalLength(isFocalLengthFixed());
  zenivo::setLens(dof_, loadLens(kDofTableLens));
  type_ = defaults().integerForKey(settings::dofTable_tableType) == 1 ? DofTableType::totalDof
                                                                      : DofTableType::nearFar;
  distances_ = standardSubjectDistances(environment().units.currentUnits());
  stops_ = stopsOfCamera();
  position_ = TablePosition::load(defaults(), kDofTablePosition, static_cast<int>(rowCount()),
                                  static_cast<int>(stops_.size()));
}

void DofTable::save() const {
  saveLens(defaults(), kDofTableLens, lens());
  defaults().setInteger(static_cast<int>(type_), settings::dofTable_tableType);
  position_.save(defaults(), kDofTablePosition);
  defaults().synchronize();
}

EditResult DofTable::setLens(const LensInput& lens) {
  if (dof_.isFixedFocalLength()) return cannotChangeFocalLength();
  zenivo::setLens(dof_, lens);
  return std::nullopt;
}

float DofTable::hyperfocal(std::size_t column) {
  dof_.setAperture(stops_[column]);
  dof_.calculateDOFValues();
  return dof_.hyperfocal();
}

DofTable::Cell DofTable::cell(std::size_t row, std::size_t column) {
  dof_.setSubjectDistance(distances_[row - 1]);
  dof_.setAperture(stops_[column]);
  dof_.calculateDOFValues();
  return {dof_.dofNearLimit(), dof_.dofFarLimit(), dof_.depthOfField()};
}

HyperfocalTable::HyperfocalTable(const CalculatorEnvironment& environment)
    : CameraCalculator(environment) {}

void HyperfocalTable::load() {
  loadCamera();
  dof_ = Dof();
  dof_.setCircleOfConfusion(camera() ? camera()->coc : 0);
  focalLengths_ = FocalLength::standardFocalLengths();
  if (isFocalLengthFixed()) focalLengths_ = {camera()->fixedFocalLengthInMetres()};
  stops_ = stopsOfCamera();
  position_ =
      TablePosition::load(defaults(), kHyperfocalPosition, static_cast<int>(focalLengths_.size()),
                          static_cast<int>(stops_.size()));
}

void HyperfocalTable::save() const {
  position_.save(defaults(), kHyperfocalPosition);
  defaults().synchronize();
}

float HyperfocalTable::hyperfocal(float focalLength, std::size_t column) {
  dof_.setFocalLength(focalLength);
  dof_.setAperture(stops_[column]);
  dof_.calculateDOFValues();
  return dof_.hyperfocal();
}

}  // namespace zenivo
