#include "engine/ObserverSky.h"

#include <algorithm>
#include <cmath>

#include "engine/Angles.h"

namespace zenivo::ephemeris {
namespace {

/// Arc sine of what rounding may have carried past 1.
double safeAsin(double x) {
  return std::asin(std::clamp(x, -1.0, 1.0));
}

}  // namespace

ObserverSky::ObserverSky(const PtPosition& place)
    : place_(place),
      longitude_(place.longitude() * kDegree),
      sinLatitude_(std::sin(place.latitude() * kDegree)),
      cosLatitude_(std::cos(place.latitude() * kDegree)) {}

double ObserverSky::localHourAngle(double siderealTime, double rightAscension) const {
  return normalizeRadians(longitude_ + siderealTime * kRadiansPerHour - rightAscension);
}

// In a frame that turns with the observer's meridian (x to the west, y to the meridian, z
// to the pole; the geocentric distance is 1) he stands at (0, rho cos phi', rho sin phi')
// times the sine of the parallax.  The direction from there is the difference.
TopocentricDirection ObserverSky::topocentric(double hourAngle, double declination,
                                              double sinParallax) const {
  const double cosDeclination = std::cos(declination);
  const double x = cosDeclination * std::sin(hourAngle);
  const double y = cosDeclination * std::cos(hourAngle) - place_.rhoCosPhi() * sinParallax;
  const double z = std::sin(declination) - place_.rhoSinPhi() * sinParallax;
  const double q = std::sqrt(x * x + y * y + z * z);
  return {.hourAngle = std::atan2(x, y), .declination = safeAsin(z / q), .distance = q};
}

PtPolar ObserverSky::horizontal(double hourAngle, double declination, double distance) const {
  const double cosHourAngle = std::cos(hourAngle);
  const double azimuth =
      180.0 + std::atan2(std::sin(hourAngle),
                         cosHourAngle * sinLatitude_ - std::tan(declination) * cosLatitude_) /
                  kDegree;
  const double sinElevation =
      sinLatitude_ * std::sin(declination) + cosLatitude_ * std::cos(declination) * cosHourAngle;
  return {.azimuth_ = azimuth >= 360.0 ? 0.0 : azimuth,
          .elevation_ = safeAsin(sinElevation) / kDegree,
          .distance_ = distance};
}

Vector3D ObserverSky::hourAngleOf(double azimuth, double elevation) const {
  const double sinEl = std::sin(elevation * kDegree);
  const double cosEl = std::cos(elevation * kDegree);
  const double sinAz = std::sin(azimuth * kDegree);
  const double cosAz = std::cos(azimuth * kDegree);
  const double declination = safeAsin(sinEl * sinLatitude_ + cosAz * cosEl * cosLatitude_);
  // The usual (sin el - sin lat sin dec) / (cos lat cos dec), multiplied through by
  // the cosines: at the poles that quotient is noise over nothing.
  const double hourAngle =
      std::atan2(-sinAz * cosEl, sinEl * cosLatitude_ - cosAz * cosEl * sinLatitude_);
  return Vector3D::withPolar(hourAngle, declination);
}

ObserverSky::DailyCircle ObserverSky::dailyCircle(double declination) const {
  return {.offset = sinLatitude_ * std::sin(declination),
          .swing = cosLatitude_ * std::cos(declination)};
}

}  // namespace zenivo::ephemeris
