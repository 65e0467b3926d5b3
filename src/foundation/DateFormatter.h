// Dates as text, in English.

#pragma once

#include <string>
#include <string_view>

#include "foundation/Date.h"
#include "foundation/TimeZone.h"

namespace zenivo {

/// Writes dates by a pattern in a time zone.  Years, months and days are those of
/// Calendar: Julian before 1582-10-15.  Fractions of a second are dropped.
///
/// Fields of the pattern: %Y year, %E4Y year in four digits, %m month, %d day, %e
/// day padded with a blank, %b and %B month name, short and full, %a and %A
/// weekday, %H hour, %I hour of twelve, %p AM or PM, %M minute, %S second, %Z name
/// of the offset ("CEST"), %Ez the offset ("+02:00"), %% a percent sign.
class DateFormatter {
 public:
  DateFormatter(std::string format, TimeZone zone);

  std::string stringFromDate(Date date) const;

  const TimeZone& timeZone() const { return zone_; }

 private:
  std::string format_;
  TimeZone zone_;
};

/// The formatter of times of day ("05:47") that all read-outs share.  Its zone is
/// the default time zone until one is set.  Callable from any thread.
DateFormatter sharedTimeFormatter();
void setSharedFormattersTimeZone(const TimeZone& zone);

/// The time of day by the shared formatter.
std::string timeStringFromDate(Date date);

/// Such as "2026-06-21T05:47:00+02:00", to the nearest second; with the seconds of an offset
/// that has some, as the mean times of old: "1900-01-01T12:00:00+00:09:21".
std::string iso8601String(Date date, const TimeZone& zone);

}  // namespace zenivo
