#include "calculators/models/NightModel.h"

#include <cmath>
#include <numbers>

namespace zenivo {
namespace {

/// Area of a full frame in square micrometres.
constexpr double kFullFrameArea = 8.64e8;

}  // namespace

NightModel NightModel::initWithExposureTime(float exposureTime, bool isNorthHemisphere) {
  return {exposureTime, 0, isNorthHemisphere};
}

void NightModel::calculateAngleFromExposureTime() {
  angle = static_cast<float>(kEarthRotationPerHour * exposureTime / 3600);
}

void NightModel::calculateExposureTimeFromAngle() {
  exposureTime = static_cast<float>(angle * 3600 / kEarthRotationPerHour);
}

float NightModel::maxExposureTimeForNPFRuleWithFocalLength(float focalLength, float aperture,
                                                           float cropFactor,
                                                           float minStarDeclination,
                                                           float circleOfConfusion,
                                                           float megapixels) {
  const double aspect = circleOfConfusion > 0.016 ? 1.5 : 4.0 / 3;
  const double pitch =
      std::sqrt(kFullFrameArea / (megapixels * 1000000.0)) * (1.0 / cropFactor * 2 / 3 * aspect);
  const double sum = 13.71 * pitch + 1000 * (0.1 * focalLength) + 16.85 * aperture;
  const double cosine = std::cos(minStarDeclination * std::numbers::pi / 180);
  return static_cast<float>(sum / (cosine * focalLength * 1000));
}

float NightModel::maxExposureTimeRuleOf500ForFocalLength(float focalLength, float cropFactor) {
  return 500 / (focalLength * cropFactor * 1000);
}

}  // namespace zenivo
