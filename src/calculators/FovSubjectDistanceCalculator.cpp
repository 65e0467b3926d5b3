#include "calculators/FovSubjectDistanceCalculator.h"

#include "app/settings/SettingsKeys.h"

namespace zenivo {
namespace {

constexpr LensKeys kSubjectDistanceLens{settings::fov_subjectDistanceFocalLength,
                                        settings::fov_subjectDistanceTeleconverter,
                                        settings::fov_subjectDistanceTeleconverter2};

}  // namespace

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

std::vector<ResultRow> FovSubjectDistanceCalculator::results() const {
  return {{"fov_subject_distance_min_distance",
           environment().formatter().formatDistance(model_.calculateMinimumSubjectDistance())}};
}

}  // namespace zenivo
