// How much of a night the Moon leaves dark.

#pragma once

#include <vector>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "time/Mjd.h"

namespace zenivo {

namespace ephemeris {
class PtSun;
class PtMoon;
}  // namespace ephemeris

/// One time that the Moon is up, mjd.  A rise of kNotThisDay means up from before,
/// a set of kNotThisDay up to the end.
struct MoonRiseSet {
  double rise = kNotThisDay;
  double set = kNotThisDay;

  friend bool operator==(const MoonRiseSet&, const MoonRiseSet&) = default;
};

/// Hours without Sun and Moon in the night that begins in the evening of the
/// date's local day: from astronomical dusk to dawn, less the time that the Moon
/// is up.  From 0 to the length of the night; 0 where it does not get dark, and where the
/// Moon stays up through the date's day.  In the polar night, dark at noon, too, noon
/// bounds the night.  Where the Moon stays down through the date's day it is taken to stay
/// down all night.  The bodies hold the observer and serve as scratch pads.
double moonlessHoursForNightAtDate(Date date, ephemeris::PtSun& sun, ephemeris::PtMoon& moon,
                                   const Calendar& calendar);

/// Hours of a night that fall within one time that the Moon is up.
double nightHoursAffectedWithMoon(const MoonRiseSet& moon, double nightStart, double nightEnd);

/// Appends the times that the Moon is up on a day with these crossings, each a
/// moment or a sentinel.
void addMoonRiseSets(std::vector<MoonRiseSet>& moonRiseSets, double forMjdRise, double andMjdSet);

}  // namespace zenivo
