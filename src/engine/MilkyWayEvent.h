// One night of the galactic centre.

#pragma once

#include "engine/CelestialBodyEvent.h"

namespace zenivo {

/// From when to when the galactic centre stands above the horizon in a dark sky
/// (Sun below -18 degrees).  kAlwaysBelow in both: not at all that night.
/// Azimuths and elevations are degrees, -1 where there is no moment.
class MilkyWayEvent : public CelestialBodyEvent {
 public:
  double mjdVisibilityFrom = kAlwaysBelow;
  double mjdVisibilityTo = kAlwaysBelow;
  double visibilityFromAzimuth = -1;
  double visibilityToAzimuth = -1;
  double visibilityFromElevation = -1;
  double visibilityToElevation = -1;
};

}  // namespace zenivo
