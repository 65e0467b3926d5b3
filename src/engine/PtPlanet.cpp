#include "engine/PtPlanet.h"

#include <algorithm>
#include <cmath>

#include "engine/Angles.h"
#include "engine/Nutation.h"
#include "engine/SiderealTime.h"

namespace zenivo::ephemeris {
namespace {

constexpr double kRadiansPerHour = 0.2617993877991494;
constexpr double kHoursPerRadian = 3.8197186342054885;

/// Arc sine of what rounding may have carried past 1.
double safeAsin(double x) {
  return std::asin(std::clamp(x, -1.0, 1.0));
}

}  // namespace

void PtPlanet::setPosition(const PtPosition& observer) {
  if (observer == observer_) return;
  observer_ = observer;
  longitude_ = observer.longitude() * kDegree;
  sinLatitude_ = std::sin(observer.latitude() * kDegree);
  cosLatitude_ = std::cos(observer.latitude() * kDegree);
  forgetDaySamples();
}

Matrix3D PtPlanet::refreshFrame(double T) {
  const Nutation nutation = nutationAt(T);
  obliquity_ = meanObliquity(T);
  nutationLongitude_ = nutation.longitude;
  nutationObliquity_ = nutation.obliquity;
  return nutation.matrix;
}

Vector3D PtPlanet::apparentFromMean(const Vector3D& meanEquatorial, double T) {
  equatorial_ = meanEquatorial;
  return refreshFrame(T) * meanEquatorial;
}

Vector3D PtPlanet::equatorialPosition(bool highPrecision, double mjd, double deltaT) {
  const double T = julianCenturies(mjd + deltaT);
  ecliptic_ = eclipticPosition(highPrecision, T);
  return apparentFromMean(rotationX(-meanObliquity(T)) * ecliptic_, T);
}

void PtPlanet::computePosition(bool highPrecision, double mjd, double deltaT) {
  equatorial_ = equatorialPosition(highPrecision, mjd, deltaT);
  const TopocentricPosition place = topocentric(equatorial_, apparentSiderealTime(mjd));
  semiDiameter_ = place.semiDiameter;
  horizontal_ = horizontalFrom(place.hourAngle, place.declination, equatorial_.r());
  horizontal_.elevation_ = refractedElevation(horizontal_.elevation_);
}

double PtPlanet::shadowRatio() const {
  return 1.0 / std::tan(horizontal_.elevation_ * kDegree);
}

double PtPlanet::equationOfEquinoxes() const {
  return nutationLongitude_ * std::cos(obliquity_ + nutationObliquity_) * kHoursPerRadian;
}

double PtPlanet::apparentSiderealTime(double mjd) const {
  return greenwichSiderealTime(mjd) + equationOfEquinoxes();
}

double PtPlanet::localHourAngle(double siderealTime, double rightAscension) const {
  return normalizeRadians(longitude_ + siderealTime * kRadiansPerHour - rightAscension);
}

TopocentricPosition PtPlanet::topocentric(const Vector3D& equatorial, double siderealTime) {
  hourAngle_ = localHourAngle(siderealTime, equatorial.phi());
  const double sinP = sinParallax(equatorial.r());
  const double cosDeclination = std::cos(equatorial.theta());
  const double x = cosDeclination * std::sin(hourAngle_);
  const double y = cosDeclination * std::cos(hourAngle_) - observer_.rhoCosPhi() * sinP;
  const double z = std::sin(equatorial.theta()) - observer_.rhoSinPhi() * sinP;
  const double q = std::sqrt(x * x + y * y + z * z);
  return {.hourAngle = std::atan2(x, y),
          .declination = safeAsin(z / q),
          .semiDiameter = semiDiameter(sinP, equatorial.r()) / q};
}

PtPolar PtPlanet::horizontalFrom(double hourAngle, double declination, double distance) const {
  const double cosHourAngle = std::cos(hourAngle);
  const double azimuth =
      180.0 + std::atan2(std::sin(hourAngle),
                         cosHourAngle * sinLatitude_ - std::tan(declination) * cosLatitude_) /
                  kDegree;
  const double sinElevation =
      sinLatitude_ * std::sin(declination) + cosLatitude_ * std::cos(declination) * cosHourAngle;
  return {.azimuth_ = azimuth < 360.0 ? azimuth : 0.0,
          .elevation_ = safeAsin(sinElevation) / kDegree,
          .distance_ = distance};
}

double PtPlanet::refractedElevation(double trueElevation) const {
  return std::min(trueElevation + refractionTrueToApparent(trueElevation), 90.0);
}

Vector3D PtPlanet::equatorialFromHorizontal(double mjd, double deltaT, double azimuth,
                                            double elevation) {
  const double sinEl = std::sin(elevation * kDegree);
  const double cosEl = std::cos(elevation * kDegree);
  const double sinAz = std::sin(azimuth * kDegree);
  const double cosAz = std::cos(azimuth * kDegree);
  const double declination = safeAsin(sinEl * sinLatitude_ + cosAz * cosEl * cosLatitude_);
  // The usual (sin el - sin lat sin dec) / (cos lat cos dec), multiplied through by
  // the cosines: at the poles that quotient is noise over nothing.
  const double hourAngle =
      std::atan2(-sinAz * cosEl, sinEl * cosLatitude_ - cosAz * cosEl * sinLatitude_);
  refreshFrame(julianCenturies(mjd + deltaT));
  // Right ascension and hour angle are each the local sidereal time less the other.
  return Vector3D::withPolar(localHourAngle(apparentSiderealTime(mjd), hourAngle), declination);
}

}  // namespace zenivo::ephemeris
