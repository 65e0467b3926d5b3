#include "calculators/StarTrailCalculator.h"

#include <cmath>
#include <numbers>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

constexpr float kDefaultExposureTime = 60;

/// The numbers of the hemispheres in the settings.
constexpr int kNorth = 0;
constexpr int kSouth = 1;

}  // namespace

StarTrailCalculator::StarTrailCalculator(UserDefaults& defaults) : defaults_(defaults) {
  load();
}

void StarTrailCalculator::load() {
  const float stored = defaults_.floatForKey(settings::nightStarTrail_exposureTime);
  model_ = NightModel::initWithExposureTime(
      stored == 0 ? kDefaultExposureTime : stored,
      defaults_.integerForKey(settings::nightStarTrail_hemisphere) != kSouth);
  model_.calculateAngleFromExposureTime();
}

void StarTrailCalculator::save() const {
  defaults_.setFloat(model_.exposureTime, settings::nightStarTrail_exposureTime);
  defaults_.setInteger(model_.isNorthHemisphere ? kNorth : kSouth,
                       settings::nightStarTrail_hemisphere);
  defaults_.synchronize();
}

void StarTrailCalculator::setExposureTime(float seconds) {
  model_.exposureTime = seconds;
  model_.calculateAngleFromExposureTime();
}

void StarTrailCalculator::setAngle(float degrees) {
  model_.angle = degrees;
  model_.calculateExposureTimeFromAngle();
}

void StarTrailCalculator::setAngleByTouch(const TrailPoint& touch, const TrailPoint& circleCenter) {
  const double angle =
      std::atan2(touch.y - circleCenter.y, touch.x - circleCenter.x) * 180 / std::numbers::pi;
  setAngle(static_cast<float>(angle < 0 ? angle + 360 : angle));
}

std::string StarTrailCalculator::hemisphereText() const {
  return commonText(model_.isNorthHemisphere ? "cardinal_point_north" : "cardinal_point_south");
}

std::vector<ResultRow> StarTrailCalculator::results() const {
  return {{"exposure_time", CameraValuesFormatter::formatShutterSpeed(model_.exposureTime)},
          {"angle", CameraValuesFormatter::formatAngle(model_.angle)},
          {"hemisphere", hemisphereText()}};
}

}  // namespace zenivo
