#include "engine/PtPlanet.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "engine/Angles.h"
#include "engine/SiderealTime.h"

namespace zenivo::ephemeris {

void PtPlanet::setPosition(const PtPosition& observer) {
  if (observer == getPosition()) return;
  sky_ = ObserverSky(observer);
  forgetDaySamples();
}

Vector3D PtPlanet::apparentFromMean(const Vector3D& meanEquatorial, const Frame& frame) {
  equatorial_ = meanEquatorial;
  frame_ = frame;
  return trueEquatorial(frame, meanEquatorial);
}

Vector3D PtPlanet::equatorialPosition(bool highPrecision, const Frame& frame) {
  ecliptic_ = eclipticPosition(highPrecision, frame.T);
  return apparentFromMean(meanEquatorial(frame, ecliptic_), frame);
}

void PtPlanet::computePosition(bool highPrecision, const Frame& frame) {
  equatorial_ = equatorialPosition(highPrecision, frame);
  const TopocentricPosition place = topocentric(equatorial_, frame.siderealTime);
  semiDiameter_ = place.semiDiameter;
  horizontal_ = horizontalFrom(place.hourAngle, place.declination, equatorial_.r());
  horizontal_.elevation_ = refractedElevation(horizontal_.elevation_);
}

double PtPlanet::shadowRatio() const {
  return 1.0 / std::tan(horizontal_.elevation_ * kDegree);
}

double PtPlanet::apparentSiderealTime(double mjd) const {
  return greenwichSiderealTime(mjd) + frame_.equationOfEquinoxes;
}

TopocentricPosition PtPlanet::topocentric(const Vector3D& equatorial, double siderealTime) {
  hourAngle_ = sky_.localHourAngle(siderealTime, equatorial.phi());
  const double sinP = sinParallax(equatorial.r());
  const TopocentricDirection seen = sky_.topocentric(hourAngle_, equatorial.theta(), sinP);
  return {.hourAngle = seen.hourAngle,
          .declination = seen.declination,
          .semiDiameter = semiDiameter(sinP, equatorial.r()) / seen.distance};
}

double PtPlanet::refractedElevation(double trueElevation) const {
  return std::min(trueElevation + refractionTrueToApparent(trueElevation), 90.0);
}

Vector3D PtPlanet::equatorialFromHorizontal(double mjd, double deltaT, double azimuth,
                                            double elevation) {
  const Vector3D place = sky_.hourAngleOf(azimuth, elevation);
  frame_ = frameAt(mjd, deltaT);
  // Right ascension and hour angle are each the local sidereal time less the other.
  return Vector3D::withPolar(sky_.localHourAngle(frame_.siderealTime, place.phi()), place.theta());
}

DaySample PtPlanet::sampleAt(double mjdAt0, double deltaT, double hour) {
  const Frame frame = frameAt(mjdAt0 + hour / 24.0, deltaT);
  const Vector3D place = equatorialPosition(true, frame);
  const double hourAngle = sky_.localHourAngle(frame.siderealTime, place.phi());
  const ObserverSky::DailyCircle circle = sky_.dailyCircle(place.theta());
  return {.sinAltitude = circle.offset + circle.swing * std::cos(hourAngle),
          .offset = circle.offset,
          .swing = circle.swing,
          .hourAngle = hourAngle,
          .rightAscension = place.phi(),
          .distance = place.r(),
          .equationOfEquinoxes = frame.equationOfEquinoxes};
}

double PtPlanet::sinAltitude(double mjdAt0, double deltaT, double hour) {
  return sampleAt(mjdAt0, deltaT, hour).sinAltitude;
}

void PtPlanet::forgetDaySamples() {
  for (DaySamples& window : windows_) window.forget();
}

DaySamples& PtPlanet::daySamples(double mjdAt0, double deltaT) {
  for (DaySamples& window : windows_) {
    if (window.covers(mjdAt0, deltaT)) return window;
  }
  latestWindow_ = (latestWindow_ + 1) % windows_.size();
  windows_[latestWindow_].start(mjdAt0, deltaT);
  return windows_[latestWindow_];
}

const DaySample& PtPlanet::daySample(double mjdAt0, double deltaT, int hour) {
  return daySamples(mjdAt0, deltaT).at(hour, [&](int h) { return sampleAt(mjdAt0, deltaT, h); });
}

double PtPlanet::horizonAltitude(double altitude) const {
  // The dip is 2.12 arcminutes per root of a metre, less where refraction is taken of an
  // altitude and not of the horizon: 1.75.
  constexpr double kDip = 2.12 / 60.0;
  constexpr double kDipOfSight = 1.75 / 60.0;
  const double root = std::sqrt(std::max(getPosition().heightAboveHorizon(), 0.0));
  if (altitude == 0.0) return altitude - kDip * root - refractionApparentToTrue(altitude);
  const bool refracted = -kDipOfSight * root <= altitude;
  return refracted ? altitude - refractionApparentToTrue(altitude) : altitude;
}

// Seen from the surface a body at the geocentric altitude h stands lower by the parallax
// in altitude, asin(rho sin p cos h'), with h' the altitude seen; and its upper limb is up
// before its centre by the semi-diameter, which the nearness to the observer enlarges by
// 1 + sin h sin p.
double PtPlanet::sinRiseAltitude(bool centre, double altitude, double distance) const {
  const double sinP = sinParallax(distance);
  const double h = horizonAltitude(altitude);
  double h0 = h;
  if (sinP > 0.0) h0 += std::asin(std::cos(h * kDegree) * getPosition().rho() * sinP) / kDegree;
  if (!centre) h0 -= (1.0 + std::sin(h0 * kDegree) * sinP) * semiDiameter(sinP, distance);
  return std::sin(h0 * kDegree);
}

double PtPlanet::targetSine(EventKind kind, double mjdAt0, double deltaT) {
  switch (kind) {
    case EventKind::civil:
      return -0.10452846326765347;  // sin(-6 degrees)
    case EventKind::nautical:
      return -0.20791169081775934;  // sin(-12 degrees)
    case EventKind::astronomical:
      return -0.3090169943749474;  // sin(-18 degrees)
    case EventKind::riseSet:
      return sinRiseAltitude(false, 0.0, daySample(mjdAt0, deltaT, 0).distance);
    case EventKind::goldenHour:
      return 0.10452846326765347;  // sin(6 degrees)
    case EventKind::blueHour:
      return -0.0697564737441253;  // sin(-4 degrees)
  }
  std::abort();
}

RiseSet PtPlanet::riseSet(EventKind kind, double mjdAt0, double deltaT) {
  constexpr double kCenturiesOfFastestMotion = 30.0;
  constexpr double kAnyMotion = 24.0;
  const double target = targetSine(kind, mjdAt0, deltaT);
  const bool isNear = std::abs(julianCenturies(mjdAt0)) < kCenturiesOfFastestMotion;
  DaySamples& samples = daySamples(mjdAt0, deltaT);
  const struct { double mjdAt0, deltaT; } window{mjdAt0, deltaT};
  return searchCrossings(
      samples, [this, &window](int hour) { return sampleAt(window.mjdAt0, window.deltaT, hour); },
      target, isNear ? fastestMotion() : kAnyMotion);
}

// With a1, a2, a3 the right ascensions of three days at the hour of mjdAt0, the body is on
// the meridian at the part m of the day in which longitude and sidereal time come to a2.
// By then it has moved: to alpha, by the parabola through the three days, and the sky has
// turned by 360.985647 degrees a day.  What is missing to the meridian, the hour angle H,
// is taken off once.
double PtPlanet::transit(double mjdAt0, double deltaT) {
  const double a1 = equatorialPosition(true, mjdAt0 - 1.0, deltaT).phi() / kDegree;
  const DaySample& today = daySample(mjdAt0, deltaT, 0);
  const DaySample& tomorrow = daySample(mjdAt0, deltaT, 24);
  double a2 = today.rightAscension / kDegree;
  double a3 = tomorrow.rightAscension / kDegree;
  if (a2 < a1) a2 += 360.0;
  if (a3 < a2) a3 += 360.0;
  // The equation of the equinoxes of the last place taken; in a day it changes by
  // less than 0.01 s.
  const double longitude = getPosition().longitude();
  const double th = 15.0 * (greenwichSiderealTime(mjdAt0) + tomorrow.equationOfEquinoxes);
  const double m = frac((a2 - longitude - th) / 360.0);
  const double turn = th + 360.985647 * m;
  const double th2 = turn - 360.0 * std::floor(turn / 360.0);
  const double n = m + deltaT;
  const double alpha = a2 + n / 2.0 * ((a3 - a1) + n * (a1 + a3 - 2.0 * a2));
  const double H = normalizeAngle180(longitude + th2 - alpha);
  const double m2 = m - H / 360.0;
  return m2 <= 1.0 ? mjdAt0 + m2 : kNotThisDay;
}

}  // namespace zenivo::ephemeris
