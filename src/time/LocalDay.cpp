#include "time/LocalDay.h"

#include "time/DateEphemeris.h"

namespace zenivo {

LocalDay::LocalDay(Date midnight) : date(midnight) {
  const PtDateTime record = ptDateTimeForDate(midnight);
  mjdAt0 = getMjd(record);
  deltaT = getDeltaT(record);
}

LocalDay LocalDay::of(Date moment, const Calendar& calendar) {
  return LocalDay(dateWithStartDateTime(moment, calendar));
}

LocalDay LocalDay::dayAfter(int days, const Calendar& calendar) const {
  return of(dateByAddingNumberOfDays(date, days, calendar), calendar);
}

}  // namespace zenivo
