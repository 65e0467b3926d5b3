// The months of the observer's time zone.

#pragma once

#include <cstdint>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "time/PtDateTime.h"

namespace zenivo {

/// The first of the month, 00:00 in the zone of the calendar, as a record in
/// Universal Time.  Months out of range are carried: month 0 is December of the
/// year before.
PtDateTime startOfMonth(std::int64_t year, int month, const Calendar& calendar);

/// The start of the local month in which a moment falls.  On a month's last
/// evening west of Greenwich Universal Time has the next month already; the
/// observer has not.
PtDateTime startOfMonthOfDate(Date date, const Calendar& calendar);

}  // namespace zenivo
