#include "calculators/HyperfocalTable.h"

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/FocalLength.h"

namespace zenivo {
namespace {

constexpr TablePositionKeys kHyperfocalPosition{
    settings::hyperfocalTable_offsetX, settings::hyperfocalTable_offsetY,
    settings::hyperfocalTable_selectedRow, settings::hyperfocalTable_selectedCol};

}  // namespace

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

float HyperfocalTable::hyperfocal(std::size_t row, std::size_t column) {
  dof_.setFocalLength(focalLengths_[row]);
  dof_.setAperture(stops_[column]);
  dof_.calculateDOFValues();
  return dof_.hyperfocal();
}

std::string HyperfocalTable::cellText(std::size_t row, std::size_t column) {
  return environment().formatter().formatDistance(hyperfocal(row, column), true);
}

std::string HyperfocalTable::rowHeader(std::size_t row) const {
  return CameraValuesFormatter::formatFocalLength(focalLengths_[row]);
}

std::string HyperfocalTable::columnHeader(std::size_t column) const {
  return CameraValuesFormatter::formatAperture(stops_[column].fstop);
}

}  // namespace zenivo
