// Searches one local day of a body.

#pragma once

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "planner/MoonEvent.h"
#include "planner/SunEvent.h"
#include "time/LocalDay.h"

namespace zenivo {

/// The azimuth of a rise or set that the day does not have.
inline constexpr double kNoAzimuth = -1.0;

/// Rise, transit and set of any body, with the azimuths.
void searchRiseTransitSet(CelestialBodyEvent& event, ephemeris::PtPlanet& body,
                          const LocalDay& day);

/// The Sun's rise, transit and set, twilights and light hours, without path and
/// lines.  Events lie in the 24 hours from midnight on, also on a day of 23 or 25
/// hours; a transit may lie a little before.
SunEvent sunEventOfDay(ephemeris::PtSun& sun, const LocalDay& day, const Calendar& calendar);

/// The same for the Moon.  `phase` is the principal phase of the day, nullptr for none.
MoonEvent moonEventOfDay(ephemeris::PtMoon& moon, const LocalDay& day,
                         const PtMoonPhaseWithDate* phase, const Calendar& calendar);

}  // namespace zenivo
