// What is seen of a lunar eclipse from a place.

#pragma once

#include <cstdint>

#include "eclipses/EarthShadow.h"
#include "eclipses/EclipseHorizon.h"
#include "eclipses/EclipseRow.h"
#include "engine/PtPosition.h"
#include "time/Mjd.h"

namespace zenivo {

/// Moments are mjd in Universal Time, kAlwaysBelow where there is no such
/// contact; elevations are the Moon's, in degrees with refraction.
struct MoonEclipseTimesResult {
  double mjdP1 = kAlwaysBelow;  ///< the Moon enters the penumbra
  double elevationP1 = kNoContactElevation;
  double mjdU1 = kAlwaysBelow;  ///< it enters the umbra
  double elevationU1 = kNoContactElevation;
  double mjdU2 = kAlwaysBelow;  ///< totality begins
  double elevationU2 = kNoContactElevation;
  double mjdMid = kAlwaysBelow;  ///< greatest eclipse
  double elevationMid = kNoContactElevation;
  double mjdU3 = kAlwaysBelow;  ///< totality ends
  double elevationU3 = kNoContactElevation;
  double mjdU4 = kAlwaysBelow;  ///< the Moon leaves the umbra
  double elevationU4 = kNoContactElevation;
  double mjdP4 = kAlwaysBelow;  ///< it leaves the penumbra
  double elevationP4 = kNoContactElevation;
  std::int32_t type = 0;  ///< as seen above the horizon: 0 none, 1 penumbral, 2 partial, 3 total
  double umbralMagnitude = 0;  ///< negative where the umbra is missed
  double penumbralMagnitude = 0;
  EarthShadow shadow;  ///< at a session's moment, which sets it; the solver leaves it alone
};

/// The local circumstances of the eclipse.  Contacts are those of the catalogue,
/// the same for the whole Earth.  Where the Moon is down at every contact only
/// mjdMid is filled.  The type is that of the deepest contacts that are above the
/// horizon.
MoonEclipseTimesResult calculateMoonEclipseTimes(const PtPosition& observer,
                                                 const LunarElements& elements);

/// How deep the Moon stands in the shadows at a moment, above the horizon or not: parts of
/// its diameter, negative outside them.
struct MoonPhaseInShadow {
  double umbralMagnitude = 0;
  double penumbralMagnitude = 0;
};

/// At the contacts 0, and 1 where totality begins and ends; at greatest eclipse the
/// catalogue's magnitudes.
/// Error: 0.007 of a diameter at the umbral contacts (every eclipse of the catalogue).
/// Source: uniform motion past the axis of the shadow; the contacts are the catalogue's.
MoonPhaseInShadow moonPhaseInShadowAt(const LunarElements& elements, double mjd);

/// The type alone: that of calculateMoonEclipseTimes in every case, at a fraction
/// of its cost, since the Moon is only computed where it stands near the horizon.
std::int32_t moonEclipseType(const PtPosition& observer, const LunarElements& elements);

}  // namespace zenivo
