// Angles, and the constants that turn them into one another.

#pragma once

#include <cmath>
#include <cstdint>

namespace zenivo {

inline constexpr double kPi = 3.14159265358979323846;
inline constexpr double kTwoPi = 2.0 * kPi;
inline constexpr double kDegree = kPi / 180.0;  ///< radians
inline constexpr double kRadiansPerHour = kPi / 12.0;
inline constexpr double kArcsecondsPerRadian = 648000.0 / kPi;

/// The fraction of x above the whole number below it, 0 up to 1.
inline double frac(double x) {
  constexpr double kNearlyEnough = 4e18;  // of what an integer holds
  if (!(std::abs(x) < kNearlyEnough)) return x - std::floor(x);
  // floor(x) again, without the call that it is on the oldest of the processors built for.
  const auto whole = static_cast<double>(static_cast<std::int64_t>(x));
  return x - (whole > x ? whole - 1.0 : whole);
}

/// Radians reduced to 0 up to 2 pi.
double normalizeRadians(double angle);

/// Degrees reduced to -180 up to 180.  Both bounds are kept as they come in.
double normalizeAngle180(double degrees);

/// a - b the short way round, degrees, -180 up to (not including) 180.
double angleDifference(double a, double b);

/// The arc between two directions of the horizon frame, by the haversine
/// formula.  Arguments in degrees, result in radians, 0 to pi.
double angularDistance(double azimuth1, double elevation1, double azimuth2, double elevation2);

}  // namespace zenivo
