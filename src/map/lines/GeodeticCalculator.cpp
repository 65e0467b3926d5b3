#include "map/lines/GeodeticCalculator.h"

#include <array>
#include <cmath>
#include <limits>

#include "engine/Angles.h"
#include "map/geodesy/Geodesic.h"

namespace zenivo {
namespace {

using Vector = std::array<double, 3>;

constexpr double kA = GeodesicConstants::WGS84_a;
constexpr double kF = GeodesicConstants::WGS84_f;
constexpr double kE2 = kF * (2.0 - kF);  // 0.00669437999014132

double dot(const Vector& a, const Vector& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// The unit vector straight up.
Vector verticalAt(const Coordinate& c) {
  const double latitude = c.latitude * kDegree;
  const double longitude = c.longitude * kDegree;
  return {std::cos(latitude) * std::cos(longitude), std::cos(latitude) * std::sin(longitude),
          std::sin(latitude)};
}

double primeVerticalRadius(double latitude) {
  const double s = std::sin(latitude * kDegree);
  return kA / std::sqrt(1.0 - kE2 * s * s);
}

Vector earthCentred(const Coordinate& c, double altitude) {
  const double n = primeVerticalRadius(c.latitude);
  const Vector up = verticalAt(c);
  return {(n + altitude) * up[0], (n + altitude) * up[1], (n * (1.0 - kE2) + altitude) * up[2]};
}

/// Radius of curvature of the ellipsoid along an azimuth (degrees).
/// Source: Euler's theorem: 1/R = cos^2 A / M + sin^2 A / N.
double radiusAlong(double azimuth, double latitude) {
  const double s = std::sin(latitude * kDegree);
  const double n = primeVerticalRadius(latitude);
  const double m = n * (1.0 - kE2) / (1.0 - kE2 * s * s);
  const double c = std::cos(azimuth * kDegree);
  return 1.0 / (c * c / m + (1.0 - c * c) / n);
}

/// Degrees from the horizon of `source` up to the straight line towards `destination`.
/// From the components of that line along the vertical and across it, since the angle's
/// cosine alone loses half of the digits near the horizon's normal.
double geometricElevation(const Coordinate& source, double sourceAltitude,
                          const Coordinate& destination, double destinationAltitude) {
  const Vector from = earthCentred(source, sourceAltitude);
  const Vector to = earthCentred(destination, destinationAltitude);
  const Vector line{to[0] - from[0], to[1] - from[1], to[2] - from[2]};
  const Vector up = verticalAt(source);
  const double rise = dot(line, up);
  const Vector across{line[0] - rise * up[0], line[1] - rise * up[1], line[2] - rise * up[2]};
  return std::atan2(rise, std::sqrt(dot(across, across))) / kDegree;
}

double compassAzimuth(double azimuth) {
  return azimuth < 0 ? azimuth + 360.0 : azimuth;
}

}  // namespace

GeodeticCurve GeodeticCalculator::geodeticCurveBetweenSource(const Coordinate& source,
                                                             double sourceAltitude,
                                                             const Coordinate& destination,
                                                             double destinationAltitude) {
  const double meanAltitude = (sourceAltitude + destinationAltitude) / 2.0;
  const double meanLatitude = (source.latitude + destination.latitude) / 2.0;
  const double radius = kA + meanAltitude * (1.0 + kF * std::sin(meanLatitude * kDegree));
  if (!(radius > 0 && std::isfinite(radius))) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    return {kNone, kNone, kNone, kNone};
  }
  const Geodesic raised(radius, kF);
  const GeodesicData way = raised.Inverse(source.latitude, source.longitude, destination.latitude,
                                          destination.longitude);
  GeodeticCurve curve;
  curve.distance = std::hypot(way.s12, destinationAltitude - sourceAltitude);
  if (way.s12 == 0) return curve;
  curve.startAzimuth = compassAzimuth(way.azi1);
  curve.endAzimuth = compassAzimuth(way.azi2 > 0 ? way.azi2 - 180.0 : way.azi2 + 180.0);
  if (curve.endAzimuth == 360.0) curve.endAzimuth = 0;
  // A ray bent by k = 1/7 of the curvature leaves the eye half of that steeper.
  const double refraction =
      way.s12 / radiusAlong(curve.startAzimuth, source.latitude) / 2.0 / 7.0 / kDegree;
  curve.apparentElevation =
      geometricElevation(source, sourceAltitude, destination, destinationAltitude) + refraction;
  return curve;
}

double GeodeticCalculator::calculateEarthRadiusForLatitude(double latitude) {
  constexpr double b = kA * (1.0 - kF);
  const double c = std::cos(latitude * kDegree);
  const double s = std::sin(latitude * kDegree);
  return std::hypot(kA * kA * c, b * b * s) / std::hypot(kA * c, b * s);
}

// In the triangle of the Earth's centre, the red pin at R + r and the point P where the line
// stands over the black pin, the angle at the centre is x = D / R, the one at the red pin
// 90 + e, and so the one at P is 90 - e - x.  By the law of sines
//
//   |P| = (R + r) cos e / cos(e + x),   way to P = (R + r) sin x / cos(e + x),
//
// and the height over the black pin's ground is |P| - R - b.
std::optional<HeightOverTerrain> GeodeticCalculator::calculateHeightAboveTerrainWithPin2PinDistance(
    double pin2PinDistance, double earthRadius, double sunMoonElevation, double redPinAltitude,
    double blackPinAltitude) {
  const double x = pin2PinDistance / earthRadius;
  const double e = sunMoonElevation * kDegree;
  if (!(e + x < kPi / 2.0)) return std::nullopt;
  const double red = earthRadius + redPinAltitude;
  return HeightOverTerrain{
      .height = red * std::cos(e) / std::cos(e + x) - earthRadius - blackPinAltitude,
      .distanceToObject = red * std::sin(x) / std::cos(e + x)};
}

// In the red pin's horizon frame the tangent plane passes (R + r) / cos x from the centre over
// the black pin, (R + r) tan x away; h is what the point stands above it along the black pin's
// vertical, which leans back by x.
double GeodeticCalculator::calculateElevationAboveTerrainWithPin2PinDistance(
    double pin2PinDistance, double earthRadius, double apparentHeight, double redPinAltitude,
    double blackPinAltitude) {
  const double x = pin2PinDistance / earthRadius;
  const double red = earthRadius + redPinAltitude;
  const double h = apparentHeight + blackPinAltitude + earthRadius - red / std::cos(x);
  return std::atan2(std::cos(x) * h, std::sin(x) * h + red * std::tan(x)) / kDegree;
}

}  // namespace zenivo
