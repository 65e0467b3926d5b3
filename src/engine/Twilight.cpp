#include "engine/Twilight.h"

#include "time/DateEphemeris.h"

namespace zenivo {

using ephemeris::EventKind;
using ephemeris::RiseSet;

AstronomicalTwilight calculateAstronomicalTwilight(ephemeris::PtSun& sun, double atMjd,
                                                   double deltaT, int localDay,
                                                   const Calendar& calendar) {
  const RiseSet day = sun.riseSet(EventKind::astronomical, atMjd, deltaT);
  AstronomicalTwilight twilight{.start = day.rise, .end = day.set};
  if (mjdIsBefore(day.set, day.rise)) {
    const double dusk = sun.riseSet(EventKind::astronomical, atMjd + 0.5, deltaT).set;
    if (drawEventAtMjd(dusk) &&
        dayValue(dateFromModifiedJulianDay(dusk, true), calendar) == localDay) {
      twilight.end2 = dusk;
    }
  }
  return twilight;
}

AstronomicalTwilight astronomicalTwilightOfDay(ephemeris::PtSun& sun, const LocalDay& day,
                                               const Calendar& calendar) {
  return calculateAstronomicalTwilight(sun, day.mjdAt0, day.deltaT, dayValue(day.date, calendar),
                                       calendar);
}

Twilights calculateTwilightsForMjd(double mjdAt0, double deltaT, int localDay,
                                   ephemeris::PtSun& sun, const Calendar& calendar) {
  const RiseSet civil = sun.riseSet(EventKind::civil, mjdAt0, deltaT);
  const RiseSet nautical = sun.riseSet(EventKind::nautical, mjdAt0, deltaT);
  const AstronomicalTwilight astronomical =
      calculateAstronomicalTwilight(sun, mjdAt0, deltaT, localDay, calendar);
  const RiseSet blue = sun.riseSet(EventKind::blueHour, mjdAt0, deltaT);
  const RiseSet golden = sun.riseSet(EventKind::goldenHour, mjdAt0, deltaT);
  return {.mjdCivilTwStart = civil.rise,
          .mjdCivilTwEnd = civil.set,
          .mjdNautTwStart = nautical.rise,
          .mjdNautTwEnd = nautical.set,
          .mjdAstronomicalTwStart = astronomical.start,
          .mjdAstronomicalTwEnd = astronomical.end,
          .mjdAstronomicalTwEnd2 = astronomical.end2,
          .mjdBlueHourEnd = blue.rise,
          .mjdBlueHourStart = blue.set,
          .mjdGoldenHourEnd = golden.rise,
          .mjdGoldenHourStart = golden.set};
}

}  // namespace zenivo
