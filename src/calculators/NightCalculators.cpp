#include "calculators/NightCalculators.h"

#include <cmath>
#include <numbers>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

constexpr float kFormerDeclination = 35;

const UserDefaults& withCorrectedDeclination(UserDefaults& defaults) {
  if (defaults.boolForKey(settings::nightSpotStars_checkedDecValue)) return defaults;
  if (defaults.floatForKey(settings::nightSpotStars_declination) == kFormerDeclination) {
    defaults.setFloat(0, settings::nightSpotStars_declination);
  }
  defaults.setBool(true, settings::nightSpotStars_checkedDecValue);
  defaults.synchronize();
  return defaults;
}

constexpr float kDefaultExposureTime = 60;

/// The numbers of the hemispheres in the settings.
constexpr int kNorth = 0;
constexpr int kSouth = 1;

}  // namespace

SpotStarsCalculator::SpotStarsCalculator(const CalculatorEnvironment& environment)
    : CameraCalculator(environment),
      model_(withCorrectedDeclination(environment.defaults), environment.apertures) {}

void SpotStarsCalculator::load() {
  loadCamera();
  model_ = SpotStarsModel(defaults(), environment().apertures);
  const AbstractCamera current = camera().value_or(AbstractCamera());
  model_.setCropFactor(current.cropFactor);
  model_.setMegaPixels(current.megapixels);
  model_.setSensorSize(current.sensorSize);
  model_.setIsFixedFocalLength(current.isFixedFocalLength());
  model_.setIsFixedAperture(current.isFixedAperture());
  if (current.isFixedFocalLength()) {
    zenivo::setLens(model_, LensInput{current.fixedFocalLengthInMetres()});
  }
  if (current.isFixedAperture()) {
    model_.setAperture(environment().apertures.apertureForStop(current.fixedAperture));
  }
}

EditResult SpotStarsCalculator::setLens(const LensInput& lens) {
  if (model_.isFixedFocalLength()) return cannotChangeFocalLength();
  zenivo::setLens(model_, lens);
  return std::nullopt;
}

EditResult SpotStarsCalculator::setAperture(const Aperture& aperture) {
  if (model_.isFixedAperture()) return cannotChangeAperture();
  model_.setAperture(aperture);
  return std::nullopt;
}

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

void StarTrailCalculator::nightStarTrailsView(const NightStarTrailsView& /*view*/, float angle) {
  setAngle(angle);
}

const std::array<TrailStar, 17>& NightStarTrailsView::stars() {
  // Each a golden angle on, and farther out by the root of its number: even over the disk.
  static constexpr std::array<TrailStar, 17> kStars{{{0, 0.17},
                                                     {137.5, 0.3},
                                                     {275, 0.38},
                                                     {52.5, 0.45},
                                                     {190, 0.51},
                                                     {327.5, 0.57},
                                                     {105, 0.62},
                                                     {242.5, 0.66},
                                                     {20, 0.71},
                                                     {157.5, 0.75},
                                                     {295, 0.79},
                                                     {72.5, 0.82},
                                                     {210, 0.86},
                                                     {347.5, 0.89},
                                                     {125, 0.92},
                                                     {262.5, 0.95},
                                                     {40, 0.99}}};
  return kStars;
}

void NightStarTrailsView::touch(const TrailPoint& touch, const TrailPoint& circleCenter) {
  const double angle =
      std::atan2(touch.y - circleCenter.y, touch.x - circleCenter.x) * 180 / std::numbers::pi;
  angle_ = static_cast<float>(angle < 0 ? angle + 360 : angle);
  if (delegate_ != nullptr) delegate_->nightStarTrailsView(*this, angle_);
}

}  // namespace zenivo
