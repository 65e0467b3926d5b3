// The sky by libnova: the whole VSOP87 and ELP2000-82B with aberration, against
// which the truncated series and the searches are held.

#pragma once

#include <libnova/lunar.h>
#include <libnova/nutation.h>
#include <libnova/sidereal_time.h>
#include <libnova/solar.h>

#include <cmath>

#include "engine/Angles.h"
#include "time/Mjd.h"

namespace zenivo::libnova {

/// Radians; the distance in the unit of the theory.
struct Place {
  double longitude, latitude, distance;
};

/// Ecliptic and equinox of J2000.0 to those of date.
/// Source: Meeus, Astronomical Algorithms (1998), formulae 21.5 to 21.7.
inline Place precessed(const Place& p, double t) {
  const double arcsecond = kDegree / 3600.0;
  const double eta = (47.0029 * t - 0.03302 * t * t + 0.00006 * t * t * t) * arcsecond;
  const double node = 174.876384 * kDegree - (869.8089 * t - 0.03536 * t * t) * arcsecond;
  const double p0 = (5029.0966 * t + 1.11113 * t * t - 0.000006 * t * t * t) * arcsecond;
  const double x = std::cos(p.latitude) * std::cos(node - p.longitude);
  const double y = std::cos(p.latitude) * std::sin(node - p.longitude);
  const double z = std::sin(p.latitude);
  return {p0 + node - std::atan2(std::cos(eta) * y - std::sin(eta) * z, x),
          std::asin(std::cos(eta) * z + std::sin(eta) * y), p.distance};
}

/// Geometric places, mean equinox of date; mjd in dynamical time.
inline Place sunAt(double mjd) {
  ln_helio_posn sun;
  ln_get_solar_geom_coords(mjd + kJdMinusMjd, &sun);
  const double latitude = std::remainder(sun.B, 360.0);
  return precessed({sun.L * kDegree, latitude * kDegree, sun.R}, julianCenturies(mjd));
}

inline Place moonAt(double mjd) {
  ln_lnlat_posn moon;
  ln_get_lunar_ecl_coords(mjd + kJdMinusMjd, &moon, 0);
  return precessed(
      {moon.lng * kDegree, moon.lat * kDegree, ln_get_lunar_earth_dist(mjd + kJdMinusMjd)},
      julianCenturies(mjd));
}

/// Where a body stands, seen from the Earth's centre.
struct Sky {
  double hourAngle;  ///< radians, -pi to pi
  double altitude;   ///< degrees
  double distance;
};

inline Sky skyOf(Place place, double aberration, double mjd, double deltaT, double latitude,
                 double longitude) {
  ln_nutation nutation;
  ln_get_nutation(mjd + deltaT + kJdMinusMjd, &nutation);
  const double eps = (nutation.ecliptic + nutation.obliquity) * kDegree;
  const double l = place.longitude + (nutation.longitude - aberration) * kDegree;
  const double b = place.latitude;
  const double x = std::cos(b) * std::cos(l);
  const double y = std::cos(b) * std::sin(l) * std::cos(eps) - std::sin(b) * std::sin(eps);
  const double z = std::cos(b) * std::sin(l) * std::sin(eps) + std::sin(b) * std::cos(eps);
  const double siderealTime = ln_get_apparent_sidereal_time(mjd + kJdMinusMjd) * 15.0;
  const double H = std::remainder((siderealTime + longitude) * kDegree - std::atan2(y, x), kTwoPi);
  const double phi = latitude * kDegree;
  const double sine = std::sin(phi) * z + std::cos(phi) * std::hypot(x, y) * std::cos(H);
  return {H, std::asin(sine) / kDegree, place.distance};
}

inline Sky sunSky(double mjd, double deltaT, double latitude, double longitude) {
  return skyOf(sunAt(mjd + deltaT), 20.4898 / 3600.0, mjd, deltaT, latitude, longitude);
}

inline Sky moonSky(double mjd, double deltaT, double latitude, double longitude) {
  return skyOf(moonAt(mjd + deltaT), 0.0, mjd, deltaT, latitude, longitude);
}

/// Degrees by which the upper limb seen from the surface is above the horizon, with
/// the refraction of 34 arcminutes that almanacs take.  A spherical Earth will do.
inline double limbOverHorizon(const Sky& sky, double parallax, double semiDiameter) {
  const double h = sky.altitude * kDegree;
  const double topocentric =
      std::atan2(std::sin(h) - std::sin(parallax * kDegree), std::cos(h)) / kDegree;
  return topocentric + semiDiameter + 34.0 / 60.0;
}

inline double sunOverHorizon(const Sky& sun) {
  return limbOverHorizon(sun, 8.794 / 3600.0 / sun.distance, 959.63 / 3600.0 / sun.distance);
}

inline double moonOverHorizon(const Sky& moon) {
  return limbOverHorizon(moon, std::asin(6378.137 / moon.distance) / kDegree,
                         std::asin(1737.4 / moon.distance) / kDegree);
}

}  // namespace zenivo::libnova
