#include "calculators/models/SpotStarsModel.h"

#include <cmath>
#include <numbers>

#include "app/settings/SettingsKeys.h"

namespace zenivo {
namespace {

constexpr float kDefaultAperture = 2.8F;
constexpr float kSubjectDistance = 10;

/// Turns of the Earth in a second, one in 23 h 56 min: 1 / 86160.
constexpr double kTurnsPerSecond = 1.1606313819356728e-5;

double pixels(float megaPixels) {
  return megaPixels * 1000000.0;
}

}  // namespace

SpotStarsModel::SpotStarsModel(const UserDefaults& defaults, const ApertureManager& stops)
    : LensModel(defaults.floatForKey(settings::nightSpotStars_focalLength),
                defaults.floatForKey(settings::nightSpotStars_teleconverter),
                defaults.floatForKey(settings::nightSpotStars_teleconverter2)),
      declination_(defaults.floatForKey(settings::nightSpotStars_declination)),
      accuracy_(defaults.integerForKey(settings::nightSpotStars_accuracy) == 0
                    ? SpotStarsAccuracy::standard
                    : SpotStarsAccuracy::accurate) {
  const float stored = defaults.floatForKey(settings::nightSpotStars_aperture);
  aperture_ = stops.apertureForStop(stored == 0 ? kDefaultAperture : stored);
}

void SpotStarsModel::saveUserDefaults(UserDefaults& defaults) const {
  defaults.setFloat(focalLength(), settings::nightSpotStars_focalLength);
  defaults.setFloat(teleconverter1(), settings::nightSpotStars_teleconverter);
  defaults.setFloat(teleconverter2(), settings::nightSpotStars_teleconverter2);
  defaults.setFloat(declination_, settings::nightSpotStars_declination);
  defaults.setInteger(static_cast<int>(accuracy_), settings::nightSpotStars_accuracy);
  defaults.setFloat(static_cast<float>(aperture_.fstop), settings::nightSpotStars_aperture);
  defaults.synchronize();
}

float SpotStarsModel::maxExposureTimeWithNPFRule() const {
  const auto P = static_cast<float>(pixels(megaPixels_));
  const float pitch = std::sqrt(sensorSize_.width * sensorSize_.height / P);  // millimetres
  const double t = teleconverter();
  const double f = focalLength();
  const double k = accuracy_ == SpotStarsAccuracy::standard ? 2.0 : 1.0;
  const double sum = 13.71 * (pitch * 1000.0) + 1000 * (0.1 * t * f) + 16.85 * aperture_.value * t;
  const double cosine = std::cos(declination_ * std::numbers::pi / 180);
  return static_cast<float>(k * sum / (cosine * (t * f * 1000)));
}

float SpotStarsModel::maxExposureTimeWithRuleOf500() const {
  return 500 / (teleconverter() * cropFactor_ * focalLength() * 1000);
}

float SpotStarsModel::maxExposureTimeVarnell() const {
  const double perMillimetre =
      std::sqrt(pixels(megaPixels_) / (sensorSize_.width * sensorSize_.height));
  const double diagonal =
      std::hypot(sensorSize_.width * perMillimetre, sensorSize_.height * perMillimetre);
  const double circumference = 90 / angleOfView().diagonalAov() * diagonal * (2 * std::numbers::pi);
  const double slowing = (90 - declination_) / 90;
  const double trail = accuracy_ == SpotStarsAccuracy::standard ? 7 : 3;
  return static_cast<float>(trail / (circumference * slowing * kTurnsPerSecond));
}

Fov SpotStarsModel::angleOfView() const {
  Fov fov(sensorSize_.width, sensorSize_.height, focalLength(), teleconverter1(), teleconverter2(),
          kSubjectDistance);
  fov.calculateFOVValues();
  return fov;
}

}  // namespace zenivo
