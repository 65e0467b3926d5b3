#include "time/LocalDay.h"

#include "time/DateEphemeris.h"

namespace zenivo {

LocalDay::LocalDay(Date midnight) : date(midnight) {
  const PtDateTime record = ptDateTimeForDate(midnight);
  mjdAt0 = getMjd(record);
  deltaT = getDeltaT(record);
}

LocalDay LocalDay::dayAfter(int days, const Calendar& calendar) const {
  return LocalDay(dateWithStartDateTime(dateByAddingNumberOfDays(date, days, calendar), calendar));
}

}  // namespace zenivo
