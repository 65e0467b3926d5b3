// When, on one day, a body stands in a given direction.
//
// A day is the 24 hours from an mjd on, usually a local midnight.  Azimuths are
// degrees from true north through east, elevations degrees with refraction.  The
// solvers use the fast series, good to a few minutes of arc; whoever reports a
// moment evaluates the body there with the full series.

#pragma once

#include <cmath>

#include "engine/Angles.h"
#include "engine/PtPlanet.h"

namespace zenivo {

/// A scan for an azimuth found no minute of the day near it.
inline constexpr double kNoAzimuthMoment = -1.0;
/// A scan for an azimuth and an elevation found no minute of the day near both.
inline constexpr double kNoDirectionMoment = -4.0;

/// Degrees, 0 to 180, between an azimuth and that of the body's last position.
inline double azimuthMiss(const ephemeris::PtPlanet& body, double azimuth) {
  return std::abs(angleDifference(body.horizontal().azimuth_, azimuth));
}

/// Moment of the day at which the body's azimuth is `azimuth`, by iterating the
/// hour angle that belongs to the azimuth at the body's declination: at most ten
/// rounds, until a round moves by 18 s or less.  Always answers, but where the
/// body does not reach the azimuth, or passes it twice, the moment may be a poor
/// one: evaluate the body there to tell.
double mjdForAzimuth(ephemeris::PtPlanet& body, double azimuth, double day, double deltaT);

/// Whole minute of the day nearest to the azimuth and within 0.25 degrees of it,
/// of the first passage above the horizon or else the nearest below it;
/// kNoAzimuthMoment when no minute is that near.
double scanMjdForAzimuth(ephemeris::PtPlanet& body, double azimuth, double day, double deltaT);

/// A direction with its tolerances, degrees.
struct DirectionWindow {
  double azimuth = 0;
  double azimuthError = 0;  ///< 0 means exactly 0
  double elevation = 0;
  double elevationError = 0;  ///< 0 means 0.1
};

/// Moment of the day, to a minute, at which the body stands nearest to the
/// direction and within its tolerances; kNoDirectionMoment when it never does.
/// Of several passages through the window the first counts.  Away from the
/// tropics a body that is down at both edges of the window is taken as down.
double scanMjdForAzimuthElevation(ephemeris::PtPlanet& body, const DirectionWindow& window,
                                  double day, double deltaT);

}  // namespace zenivo
