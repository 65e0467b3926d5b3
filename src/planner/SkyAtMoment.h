// Sun, Moon and Milky Way over a place at one moment.

#pragma once

#include <optional>

#include "engine/MoonPhase.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtMoon.h"
#include "engine/PtPolar.h"
#include "engine/PtSun.h"
#include "foundation/Date.h"

namespace zenivo {

struct SkyAtMoment {
  std::optional<Date> date;  ///< nullopt: what follows is not of where the observer is now

  PtPolar sunPosition;
  PtPolar moonPosition;
  double sunAngularDiameter = 0;   ///< degrees
  double moonAngularDiameter = 0;  ///< degrees
  double sunDeclination = 0;       ///< radians
  double subSolarLongitude = 0;    ///< where the Sun culminates, radians, any turn
  double sunShadow = 0;            ///< length of a shadow over its object's height,
  double moonShadow = 0;           ///< negative below the horizon
  MoonPhase moonPhase;
  PtMilkyWayPosition milkyWayPosition;

  /// The Sun's ratio, -1 when above 500.
  double sunShadowRatio() const;
  /// The Moon's; -1 when above 500 or when it gives no light to throw shadows by: less
  /// than a twentieth lit, below the horizon, or no full night.
  double moonShadowRatio() const;
};

/// The sky over the place at which the bodies stand, by the full series.  Sun and Moon are
/// left at the moment.
SkyAtMoment skyAtMoment(Date date, ephemeris::PtSun& sun, ephemeris::PtMoon& moon,
                        ephemeris::PtMilkyWay& milkyWay);

/// Leaves both bodies at a moment.
void computeBodies(Date date, ephemeris::PtSun& sun, ephemeris::PtMoon& moon);

}  // namespace zenivo
