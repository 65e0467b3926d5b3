// Nutation and the obliquity of the ecliptic.

#pragma once

#include "engine/Vector3D.h"

namespace zenivo::ephemeris {

/// Mean obliquity of the ecliptic, radians.  T: Julian centuries of dynamical
/// time since J2000.0.
double meanObliquity(double T);

/// The nodding of the Earth's axis at one moment.
struct Nutation {
  double longitude = 0;  ///< radians
  double obliquity = 0;  ///< radians
  Matrix3D matrix{};     ///< from the mean equator and equinox of date to the true
};

/// The leading terms, good to half an arcsecond.  T as above.
/// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer.
Nutation nutationAt(double T);

}  // namespace zenivo::ephemeris
