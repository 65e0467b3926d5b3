#include "time/LocalMonth.h"

#include "time/DateEphemeris.h"

namespace zenivo {

PtDateTime startOfMonth(std::int64_t year, int month, const Calendar& calendar) {
  return ptDateTimeForDate(calendar.dateFromComponents({.year = year, .month = month, .day = 1}));
}

PtDateTime startOfMonthOfDate(Date date, const Calendar& calendar) {
  const DateComponents c = calendar.componentsFromDate(date);
  return startOfMonth(c.year, c.month, calendar);
}

}  // namespace zenivo
