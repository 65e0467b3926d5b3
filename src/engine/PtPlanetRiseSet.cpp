// The searches of PtPlanet: rise, set and transit.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "engine/Angles.h"
#include "engine/PtPlanet.h"
#include "engine/QuadraticRoots.h"
#include "engine/SiderealTime.h"

namespace zenivo::ephemeris {

DaySample PtPlanet::sampleAt(double mjdAt0, double deltaT, double hour) {
  const double mjd = mjdAt0 + hour / 24.0;
  const Vector3D place = equatorialPosition(true, mjd, deltaT);
  const double equation = equationOfEquinoxes();
  const double tau = localHourAngle(greenwichSiderealTime(mjd) + equation, place.phi());
  return {.sinAltitude = sinLatitude_ * std::sin(place.theta()) +
                         cosLatitude_ * std::cos(place.theta()) * std::cos(tau),
          .rightAscension = place.phi(),
          .distance = place.r(),
          .equationOfEquinoxes = equation};
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
  DaySamples& samples = daySamples(mjdAt0, deltaT);
  const auto index = static_cast<std::size_t>(hour);
  if (samples.has(index)) return samples.at(index);
  return samples.store(index, sampleAt(mjdAt0, deltaT, hour));
}

double PtPlanet::horizonAltitude(double altitude) const {
  const double root = std::sqrt(std::max(observer_.heightAboveHorizon(), 0.0));
  if (altitude == 0.0) {
    return altitude - 0.035333333333333335 * root - refractionApparentToTrue(altitude);
  }
  const bool refracted = -0.029166666666666667 * root <= altitude;
  return refracted ? altitude - refractionApparentToTrue(altitude) : altitude;
}

double PtPlanet::sinRiseAltitude(bool centre, double altitude, double distance) const {
  const double sinP = sinParallax(distance);
  const double h = horizonAltitude(altitude);
  double h0 = h;
  if (sinP > 0.0) h0 += std::asin(std::cos(h * kDegree) * observer_.rho() * sinP) / kDegree;
  if (!centre) h0 -= (1.0 + std::sin(h0 * kDegree) * sinP) * semiDiameter(sinP, distance);
  return std::sin(h0 * kDegree);
}

double PtPlanet::targetSine(EventKind kind, double mjdAt0, double deltaT) {
  switch (kind) {
    case EventKind::civil:
      return -0.10452846326765347;
    case EventKind::nautical:
      return -0.20791169081775934;
    case EventKind::astronomical:
      return -0.3090169943749474;
    case EventKind::riseSet:
      return sinRiseAltitude(false, 0.0, daySample(mjdAt0, deltaT, 0).distance);
    case EventKind::goldenHour:
      return 0.10452846326765347;
    case EventKind::blueHour:
      return -0.0697564737441253;
  }
  std::abort();
}

RiseSet PtPlanet::riseSet(EventKind kind, double mjdAt0, double deltaT) {
  const double target = targetSine(kind, mjdAt0, deltaT);
  const auto height = [&](int hour) {
    return daySample(mjdAt0, deltaT, hour).sinAltitude - target;
  };
  const double atStart = height(0);
  double yMinus = atStart;
  std::optional<double> rise;  // hours
  std::optional<double> set;
  for (int hour = 1; hour <= 23 && !(rise && set); hour += 2) {
    const double yPlus = height(hour + 1);
    const QuadraticRoots roots = quadraticRoots(yMinus, height(hour), yPlus);
    if (roots.count == 1) {
      (yMinus < 0.0 ? rise : set) = hour + roots.root1;
    } else if (roots.count == 2) {
      const bool dips = roots.extremeValue < 0.0;
      rise = hour + (dips ? roots.root2 : roots.root1);
      set = hour + (dips ? roots.root1 : roots.root2);
    }
    yMinus = yPlus;
  }
  if (!rise && !set) {
    const double all = atStart > 0.0 ? kAlwaysAbove : kAlwaysBelow;
    return {all, all};
  }
  const auto moment = [&](const std::optional<double>& hours) {
    return hours ? mjdAt0 + *hours / 24.0 : kNotThisDay;
  };
  return {moment(rise), moment(set)};
}

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
  const double th = 15.0 * (greenwichSiderealTime(mjdAt0) + tomorrow.equationOfEquinoxes);
  const double m = frac((a2 - observer_.longitude() - th) / 360.0);
  const double turn = th + 360.985647 * m;
  const double th2 = turn - 360.0 * std::floor(turn / 360.0);
  const double n = m + deltaT;
  const double alpha = a2 + n / 2.0 * ((a3 - a1) + n * (a1 + a3 - 2.0 * a2));
  const double H = normalizeAngle180(observer_.longitude() + th2 - alpha);
  const double m2 = m - H / 360.0;
  return m2 > 1.0 ? kNotThisDay : mjdAt0 + m2;
}

}  // namespace zenivo::ephemeris
