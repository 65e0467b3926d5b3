// The twilights of one day.

#pragma once

#include "engine/PtSun.h"
#include "foundation/Calendar.h"
#include "time/LocalDay.h"
#include "time/Mjd.h"

namespace zenivo {

/// Crossings of the 24 hours from local midnight on: mjd or sentinels (Mjd.h).
/// Twilights start in the morning and end in the evening.  The blue hour and
/// golden hour fields are named the other way round: their end is the morning
/// crossing of -4 and +6 degrees, their start the evening one.
struct Twilights {
  double mjdCivilTwStart = kNotThisDay;
  double mjdCivilTwEnd = kNotThisDay;
  double mjdNautTwStart = kNotThisDay;
  double mjdNautTwEnd = kNotThisDay;
  double mjdAstronomicalTwStart = kNotThisDay;
  double mjdAstronomicalTwEnd = kNotThisDay;
  double mjdAstronomicalTwEnd2 = kAlwaysBelow;  ///< a second dusk before midnight
  double mjdBlueHourEnd = kNotThisDay;
  double mjdBlueHourStart = kNotThisDay;
  double mjdGoldenHourEnd = kNotThisDay;
  double mjdGoldenHourStart = kNotThisDay;

  friend bool operator==(const Twilights&, const Twilights&) = default;
};

/// The astronomical twilight alone.
/// Error, special cases and source: those of PtPlanet::riseSet.
///
/// Where the Sun barely reaches -18 degrees, dusk comes after midnight, before the
/// dawn of the same local day; a second dusk may follow late in the evening.
/// end2 is that one, else kAlwaysBelow.
struct AstronomicalTwilight {
  double start = kNotThisDay;
  double end = kNotThisDay;
  double end2 = kAlwaysBelow;
};

/// `localDay` is the local day of the month at `atMjd`, the local midnight that opens
/// the day, told by who knows the midnight to the second; a second dusk counts when it
/// falls on that day in the zone of the calendar.
AstronomicalTwilight calculateAstronomicalTwilight(ephemeris::PtSun& sun, double atMjd,
                                                   double deltaT, int localDay,
                                                   const Calendar& calendar);

AstronomicalTwilight astronomicalTwilightOfDay(ephemeris::PtSun& sun, const LocalDay& day,
                                               const Calendar& calendar);

/// All twilights of a local day, for sun's observer.
Twilights calculateTwilightsForMjd(double mjdAt0, double deltaT, int localDay,
                                   ephemeris::PtSun& sun, const Calendar& calendar);

}  // namespace zenivo
