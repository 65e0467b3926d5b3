// Moments as the meteor analysis passes them about.

#pragma once

#include <cstdint>

#include "foundation/Calendar.h"
#include "foundation/Date.h"

namespace zenivo {

/// TT minus UT, days.
double deltaTAtMjd(double mjd);

/// mjd of the local midnight that opens the day `days` after the date's.
double mjdAtLocalMidnight(Date date, int days, const Calendar& calendar);

/// A moment with what the sky at it is computed from.  deltaT and the month change so
/// slowly that a whole night is computed with those of its day.
struct MeteorMoment {
  double mjd = 0;
  double deltaT = 0;      ///< days
  std::int64_t year = 0;  ///< of the local day
  int month = 0;
};

/// Local midnight, with its own deltaT, year and month.
MeteorMoment momentOfDay(double mjdStart, const Calendar& calendar);

}  // namespace zenivo
