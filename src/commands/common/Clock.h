// Moments on the clocks of a zone, as people read them.

#pragma once

#include <string>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"

namespace zenivo::cli {

/// "Sunday 7 June 2026"
std::string dayTitle(Date date, const TimeZone& zone);

/// "Sunday 7 June 2026, 05:47 UTC+02:00", to the nearest minute; the last half minute of a day
/// is its "24:00".  Not for sentinels.
std::string momentTitle(double mjd, const TimeZone& zone);

/// "UTC+02:00", with seconds only where the offset has some.
std::string offsetTitle(Date date, const TimeZone& zone);

/// The same for a span of time; two when the clocks change between its ends:
/// "UTC+01:00, then UTC+02:00".
std::string offsetTitle(Date start, Date end, const TimeZone& zone);

/// The clock of one local day, to the nearest minute.
class DayClock {
 public:
  DayClock(const DateComponents& day, TimeZone zone);

  const TimeZone& zone() const { return calendar_.timeZone(); }
  const DateComponents& day() const { return day_; }
  Date start() const { return start_; }  ///< of the day
  Date end() const { return end_; }      ///< of the day and start of the next

  /// "05:47"; "24:00" when the minute is the next midnight; on other days the
  /// number of days is added, as in "03:12 +1d".  "-" for a sentinel.
  std::string time(double mjd) const;

  /// "UTC+02:00", or the two offsets of a day on which the clocks change.
  std::string offset() const;

 private:
  Calendar calendar_;
  DateComponents day_;
  Date start_;
  Date end_;
};

}  // namespace zenivo::cli
