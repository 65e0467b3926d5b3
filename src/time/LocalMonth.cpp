#include "time/LocalMonth.h"

#include "time/DateEphemeris.h"

namespace zenivo {

PtDateTime startOfMonth(std::int64_t year, int month) {
  return ptDateTimeForDate(
      cachedCalendar().dateFromComponents({.year = year, .month = month, .day = 1}));
}

PtDateTime startOfMonthOfDate(Date date) {
  const DateComponents c = cachedCalendar().componentsFromDate(date);
  return startOfMonth(c.year, c.month);
}

}  // namespace zenivo
