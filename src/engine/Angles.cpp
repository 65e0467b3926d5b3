#include "engine/Angles.h"

#include <algorithm>

namespace zenivo {

double normalizeRadians(double angle) {
  const double turn = angle - kTwoPi * std::floor(angle / kTwoPi);
  if (turn < 0.0) return 0.0;  // rounding of the quotient, a hair on either side
  return turn >= kTwoPi ? 0.0 : turn;
}

double normalizeAngle180(double degrees) {
  if (degrees >= -180.0 && degrees <= 180.0) return degrees;
  const double turn = std::fmod(degrees, 360.0);
  if (turn > 180.0) return turn - 360.0;
  return turn < -180.0 ? turn + 360.0 : turn;
}

double angleDifference(double a, double b) {
  return std::fmod(std::fmod(a - b, 360.0) + 540.0, 360.0) - 180.0;
}

double angularDistance(double azimuth1, double elevation1, double azimuth2, double elevation2) {
  const double e1 = elevation1 * kDegree;
  const double e2 = elevation2 * kDegree;
  const double sinElevation = std::sin((e2 - e1) / 2.0);
  const double sinAzimuth = std::sin((azimuth2 - azimuth1) * kDegree / 2.0);
  const double haversine =
      sinElevation * sinElevation + std::cos(e1) * std::cos(e2) * sinAzimuth * sinAzimuth;
  return 2.0 * std::asin(std::sqrt(std::min(haversine, 1.0)));
}

}  // namespace zenivo
