// A solar eclipse at one place and instant, from Besselian elements, and the
// search for its greatest moment and contacts.
//
// The fundamental plane passes through the Earth's centre at a right angle to
// the shadow's axis: x, xi point east, y, eta north, zeta along the axis to the
// Moon.  Lengths are Earth radii, angles radians, rates per hour.
// Source: Meeus, Elements of Solar Eclipses 1951-2200 (1989); Explanatory
// Supplement to the Astronomical Almanac (1992), chapter 8.

#pragma once

#include <cstdint>

#include "eclipses/EclipseObserver.h"
#include "eclipses/EclipseRow.h"

namespace zenivo {

/// Instants of a solar eclipse.
namespace eclipse_event {
inline constexpr std::int32_t firstContact = -2;
inline constexpr std::int32_t secondContact = -1;
inline constexpr std::int32_t greatest = 0;
inline constexpr std::int32_t thirdContact = 1;
inline constexpr std::int32_t fourthContact = 2;
}  // namespace eclipse_event

/// One evaluated instant.  l1 and L1 stand for the events 0 and +-2, l2 and L2
/// for 0 and +-1; the magnitudes and the type are those of event 0.
struct Circumstance {
  std::int32_t event = eclipse_event::greatest;
  double t = 0;                      ///< hours from t0
  double x = 0, y = 0;               ///< the shadow's axis
  double d = 0, sinD = 0, cosD = 0;  ///< declination of the axis
  double mu = 0;                     ///< hour angle of the axis at Greenwich
  double l1 = 0, l2 = 0;             ///< radii of the cones in the fundamental plane
  double xDot = 0, yDot = 0, dDot = 0, muDot = 0, l1Dot = 0, l2Dot = 0;
  double h = 0, sinH = 0, cosH = 0;  ///< local hour angle of the axis
  double xi = 0, eta = 0, zeta = 0;  ///< the observer
  double xiDot = 0, etaDot = 0;
  double u = 0, v = 0;    ///< from the observer to the axis
  double a = 0, b = 0;    ///< rates of u and v
  double L1 = 0, L2 = 0;  ///< radii of the cones at the observer; L2 < 0 where total
  double nSquared = 0;    ///< a^2 + b^2
  double p = 0;           ///< position angle of the contact, from north
  double alt = 0;         ///< the Sun's altitude without refraction
  double q = 0;           ///< parallactic angle
  double vAngle = 0;      ///< position angle of the contact, from the zenith
  double m = 0;           ///< distance of the axis
  double magnitude = 0;   ///< covered part of the Sun's diameter
  double ratio = 0;       ///< the Moon's diameter over the Sun's
  std::int32_t type = 0;  ///< 0 none, 1 partial, 2 annular, 3 total
  bool belowHorizon = false;
};

/// The five instants of an eclipse at a place.  `mid.type` 0: the penumbra
/// misses it, and no contact is filled; 1: c2 and c3 are not filled.
struct SolarCircumstances {
  Circumstance mid, c1, c2, c3, c4;
};

/// What an eclipse does at a place, its horizon left aside.  Each search ends
/// when a step falls to 1e-6 hours or after 50 steps; instants are then right to
/// the precision of the elements (about 1 s).  They are in order, the contacts of
/// a graze on the greatest moment itself, and no field is ever NaN.
SolarCircumstances solarCircumstances(const SolarElements& elements,
                                      const EclipseObserver& observer);

/// The eclipse `t` hours from t0, evaluated as greatest eclipse is: with its own distance,
/// magnitude, ratio and type.
Circumstance circumstanceAt(const SolarElements& elements, const EclipseObserver& observer,
                            double t);

}  // namespace zenivo
