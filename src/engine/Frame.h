// The equator of one moment: how it lies, and how far the Earth has turned.

#pragma once

#include "engine/Nutation.h"
#include "engine/Vector3D.h"

namespace zenivo::ephemeris {

/// What all bodies share at one moment.  A plain value: equal moments give equal bits.
struct Frame {
  double mjd = 0;        ///< Universal Time
  double T = 0;          ///< Julian centuries of dynamical time since J2000.0
  double obliquity = 0;  ///< mean, radians
  double cosObliquity = 1, sinObliquity = 0;
  Nutation nutation;               ///< with the matrix from the mean to the true equator
  double equationOfEquinoxes = 0;  ///< hours, apparent less mean sidereal time
  double siderealTime = 0;         ///< apparent, at Greenwich, hours; not reduced to a day
};

/// `mjd` in Universal Time, deltaT in days: the Earth turns by the one, its axis moves by
/// their sum.
/// Error: the true equinox to half an arcsecond (1900 to 2100, against libnova), sidereal
/// time to 0.03 s.
/// Special cases: a moment that is not a number makes every field none.
/// Source: Meeus, Astronomical Algorithms (1998), chapters 12 and 22.
Frame frameAt(double mjd, double deltaT);

/// A place of the mean ecliptic of date on the mean equator of date.
Vector3D meanEquatorial(const Frame& frame, const Vector3D& ecliptic);

/// A place of the mean equator and equinox of date on the true ones.
Vector3D trueEquatorial(const Frame& frame, const Vector3D& meanEquatorial);

}  // namespace zenivo::ephemeris
