// Nutation and the obliquity of the ecliptic.

#pragma once

#include "engine/Vector3D.h"

namespace zenivo::ephemeris {

/// Mean obliquity of the ecliptic, radians.  T: Julian centuries of dynamical
/// time since J2000.0.
/// Error: 0.004 arcseconds at Meeus's example; a cubic, it loses meaning beyond 50 centuries.
/// Special cases: none for what is not a number.
/// Source: IAU 1980 (Lieske et al. 1977).
double meanObliquity(double T);

/// The nodding of the Earth's axis at one moment.
struct Nutation {
  double longitude = 0;  ///< radians
  double obliquity = 0;  ///< radians
  Matrix3D matrix{};     ///< from the mean equator and equinox of date to the true
};

/// The leading terms of the IAU's series.  T as above.
/// Error: 0.2 arcseconds in longitude and 0.1 in obliquity (against Meeus, example 22.a).
/// Special cases: none for what is not a number.
/// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer.
Nutation nutationAt(double T);

}  // namespace zenivo::ephemeris
