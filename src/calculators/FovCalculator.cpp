#include "calculators/FovCalculator.h"

#include "app/settings/SettingsKeys.h"

namespace zenivo {
namespace {

constexpr LensKeys kFovLens{settings::fov_focalLength, settings::fov_teleconverter,
                            settings::fov_teleconverter2};

constexpr LensKeys kSubjectDistanceLens{settings::fov_subjectDistanceFocalLength,
                                        settings::fov_subjectDistanceTeleconverter,
                                        settings::fov_subjectDistanceTeleconverter2};

}  // namespace

FovCalculator::FovCalculator(const CalculatorEnvironment& environment)
    : CameraCalculator(environment) {}

void FovCalculator::load() {
  loadCamera();
  model_ = Fov();
  const SensorSize sensor = camera() ? camera()->sensorSize : SensorSize();
  model_.setSensorWidth(sensor.width);
  model_.setSensorHeight(sensor.height);
  model_.setIsFixedFocalLength(isFocalLengthFixed());
  zenivo::setLens(model_, loadLens(kFovLens));
  model_.setSubjectDistance(defaults().floatForKey(settings::fov_subjectDistance));
  model_.setIsPortrait(defaults().boolForKey(settings::fov_isPortrait));
  model_.calculateFOVValues();
  selectedPage_ = defaults().integerForKey(settings::fov_selectedPage);
}

void FovCalculator::save() const {
  saveLens(defaults(), kFovLens, lensOf(model_));
  defaults().setFloat(model_.subjectDistance(), settings::fov_subjectDistance);
  defaults().setBool(model_.isPortrait(), settings::fov_isPortrait);
  defaults().setInteger(selectedPage_, settings::fov_selectedPage);
  defaults().synchronize();
}

EditResult FovCalculator::setLens(const LensInput& lens) {
  if (model_.isFixedFocalLength()) return cannotChangeFocalLength();
  return edit([&lens](Fov& model) { zenivo::setLens(model, lens); });
}

EditResult FovCalculator::setSubjectDistance(float metres) {
  return edit([metres](Fov& model) { model.setSubjectDistance(metres); });
}

EditResult FovCalculator::setIsPortrait(bool isPortrait) {
  return edit([isPortrait](Fov& model) { model.setIsPortrait(isPortrait); });
}

EditResult FovCalculator::solve(Fov& edited) const {
  edited.calculateFOVValues();
  return std::nullopt;
}

FovSubjectDistanceCalculator::FovSubjectDistanceCalculator(const CalculatorEnvironment& environment)
    : CameraCalculator(environment) {}

void FovSubjectDistanceCalculator::load() {
  loadCamera();
  model_ = FovSubjectDistance();
  const SensorSize sensor = camera() ? camera()->sensorSize : SensorSize();
  model_.setSensorWidth(sensor.width);
  model_.setSensorHeight(sensor.height);
  model_.setIsFixedFocalLength(isFocalLengthFixed());
  zenivo::setLens(model_, loadLens(kSubjectDistanceLens));
  model_.setObjectWidth(defaults().floatForKey(settings::fov_subjectDistanceObjectWidth));
  model_.setObjectHeight(defaults().floatForKey(settings::fov_subjectDistanceObjectHeight));
  model_.setIsPortrait(defaults().boolForKey(settings::fov_subjectDistanceIsPortrait));
}

void FovSubjectDistanceCalculator::save() const {
  saveLens(defaults(), kSubjectDistanceLens, lensOf(model_));
  defaults().setFloat(model_.objectWidth(), settings::fov_subjectDistanceObjectWidth);
  defaults().setFloat(model_.objectHeight(), settings::fov_subjectDistanceObjectHeight);
  defaults().setBool(model_.isPortrait(), settings::fov_subjectDistanceIsPortrait);
  defaults().synchronize();
}

EditResult FovSubjectDistanceCalculator::setLens(const LensInput& lens) {
  if (model_.isFixedFocalLength()) return cannotChangeFocalLength();
  zenivo::setLens(model_, lens);
  return std::nullopt;
}

void FovSubjectDistanceCalculator::setObjectSize(float width, float height) {
  model_.setObjectWidth(width);
  model_.setObjectHeight(height);
}

}  // namespace zenivo
