// What is seen of a solar eclipse from a place.

#pragma once

#include <cstdint>

#include "eclipses/Circumstance.h"
#include "eclipses/EclipseHorizon.h"
#include "eclipses/EclipseRow.h"
#include "engine/PtPosition.h"
#include "time/Mjd.h"

namespace zenivo {

/// Moments are mjd in Universal Time, kAlwaysBelow where there is no such
/// contact; elevations are the Sun's, in degrees with refraction.
struct SunEclipseTimesResult {
  double mjdC1 = kAlwaysBelow;  ///< first contact: the partial eclipse begins
  double elevationC1 = kNoContactElevation;
  double mjdC2 = kAlwaysBelow;  ///< totality or annularity begins
  double elevationC2 = kNoContactElevation;
  double mjdMax = kAlwaysBelow;  ///< greatest eclipse
  double elevationMax = kNoContactElevation;
  double mjdC3 = kAlwaysBelow;  ///< totality or annularity ends
  double elevationC3 = kNoContactElevation;
  double mjdC4 = kAlwaysBelow;  ///< the partial eclipse ends
  double elevationC4 = kNoContactElevation;
  std::int32_t type = 0;  ///< as seen above the horizon: 0 none, 1 partial, 2 annular, 3 total
  /// At greatest eclipse, above the horizon or not: the covered part of the
  /// Sun's diameter; in the central path the Moon's diameter over the Sun's.
  double magnitude = 0;
  double obscuration = 0;  ///< the covered part of the Sun's disk, 0 to 1
};

/// The local circumstances of the eclipse, right to about 2 s where its deltaT
/// is.  Where the penumbra misses the place only mjdMax is filled.  Where it
/// comes but the Sun is down the contacts are filled and the type is 0; an
/// eclipse of which only the first or the last contact is above the horizon is a
/// partial one.
SunEclipseTimesResult calculateSunEclipseTimes(const PtPosition& observer,
                                               const SolarElements& elements);

/// The type alone: that of calculateSunEclipseTimes in every case, at a fraction
/// of its cost, since the Sun is only computed where it stands near the horizon.
std::int32_t sunEclipseType(const PtPosition& observer, const SolarElements& elements);

/// What is covered of the Sun at a moment, above the horizon or not.
struct SunPhase {
  double magnitude = 0;  ///< of the diameter; in the umbra the Moon's diameter over the Sun's
  double covered = 0;    ///< of the disk, 0 to 1 and not rounded; 1 only where total
};

SunPhase sunPhaseAt(const PtPosition& observer, const SolarElements& elements, double mjd);

/// The covered part of the Sun's disk at greatest eclipse, 0 to 1: to three
/// decimals where the Sun's edge is partly covered, exact in the central path.
double obscurationAtGreatest(const Circumstance& mid);

}  // namespace zenivo
