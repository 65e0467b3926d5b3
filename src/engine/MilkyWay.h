// The nights of the galactic centre.

#pragma once

#include <optional>

#include "engine/MilkyWayEvent.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"

namespace zenivo {

namespace ephemeris {
class PtSun;
class PtMilkyWay;
}  // namespace ephemeris

/// From when to when the galactic centre is seen in the night that concerns a
/// moment: before the morning's nautical twilight the night that is ending, else
/// the coming one.  Local days are those of the calendar.  In the polar night, which has
/// no dusk and no dawn, a night is from noon to noon (Night.h).  kAlwaysBelow where it is
/// not seen, and where it does not get dark.
///
/// The event has the centre's rise and set, too; azimuths and elevations are left
/// to who needs them.
/// Error: dusk and dawn 25 s, the centre's rise and set a minute (refraction).
/// Special cases: a date that is no moment is not seen.
/// Source: the definition: centre above the horizon, Sun below -18 degrees.
MilkyWayEvent calculateGalacticCenterVisibility(ephemeris::PtMilkyWay& milkyWay,
                                                ephemeris::PtSun& withSun, Date atDate,
                                                const Calendar& calendar);

/// The first of the 180 local days after `atDate`, at the same time of the day, in
/// whose night the galactic centre is seen.  nullopt when there is none, and
/// north of 58 degrees, where it barely clears the horizon.
std::optional<Date> nextDateGalacticCenterIsVisible(ephemeris::PtMilkyWay& milkyWay,
                                                    ephemeris::PtSun& sun, Date atDate,
                                                    const Calendar& calendar);

}  // namespace zenivo
