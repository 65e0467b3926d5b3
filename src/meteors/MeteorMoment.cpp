#include "meteors/MeteorMoment.h"

#include "time/DateEphemeris.h"
#include "time/ZVDateTime.h"

namespace zenivo {

double deltaTAtMjd(double mjd) {
  ZVDateTime moment;
  moment.setFromMjd(mjd);
  return moment.getDeltaT();
}

double mjdAtLocalMidnight(Date date, int days, const Calendar& calendar) {
  // From noon, so that no clock change near midnight can lose or repeat a day.
  const Date noon = dateByAddingNumberOfDays(dateWithNoonDateTime(date, calendar), days, calendar);
  return modifiedJulianDay(dateWithStartDateTime(noon, calendar));
}

MeteorMoment momentOfDay(double mjdStart, const Calendar& calendar) {
  // Well inside the day, where rounding to whole minutes cannot leave it.
  const Date morning = dateFromModifiedJulianDay(mjdStart + 0.25);
  return {.mjd = mjdStart,
          .deltaT = deltaTAtMjd(mjdStart),
          .year = yearValue(morning, calendar),
          .month = monthValue(morning, calendar)};
}

}  // namespace zenivo
