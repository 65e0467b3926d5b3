// The civil date record of the ephemeris.

#pragma once

#include <compare>
#include <cstdint>

#include "time/Mjd.h"

namespace zenivo {

/// PtDateTime: a civil date and time, always Universal Time.  Records order by year, month,
/// day, hour and minutes in turn; minutes compare exactly.
struct PtDateTime {
  std::int32_t year = 0;   ///< astronomical: the year before 1 is 0
  std::int32_t month = 0;  ///< 1 to 12
  std::int32_t day = 0;    ///< 1 to 31
  std::int32_t hour = 0;   ///< 0 to 23
  double minutes = 0;      ///< with their fraction; seconds live in it

  friend auto operator<=>(const PtDateTime&, const PtDateTime&) = default;
};

/// Modified and full Julian date.  The calendar is the Julian one up to
/// 1582-10-04, the Gregorian one after; years from -4716 on.
double getMjd(const PtDateTime& record);
double getJd(const PtDateTime& record);

/// Fills the record.  Minutes are rounded to five decimals (in single
/// precision), so that a whole minute comes back as one; they may become 60.
void setFromMjd(PtDateTime& record, double mjd);
void setFromJd(PtDateTime& record, double jd);

/// TT minus UT at the record's moment, days.
double getDeltaT(const PtDateTime& record);

/// The year with its fraction as the geomagnetic model is fed with it: the
/// days of months before July to December are counted one short.
double getDecimalYear(const PtDateTime& record);

}  // namespace zenivo
