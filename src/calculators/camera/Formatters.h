// The formatters of dates and plain numbers that the tools share.

#pragma once

#include "foundation/DateFormatter.h"
#include "foundation/NumberFormatter.h"
#include "foundation/TimeZone.h"

namespace zenivo {

/// Short forms of moments in one time zone, and fixed forms for files and URLs.
class Formatters {
 public:
  /// "05:47", "2026-06-21" and both, in the zone last set here or by
  /// setSharedFormattersTimeZone: all read-outs tell the time of one zone.
  DateFormatter shortTimeFormatter() const { return sharedTimeFormatter(); }
  DateFormatter shortDateFormatter() const;
  DateFormatter shortDateTimeFormatter() const;

  void setTimeZone(const TimeZone& zone);

  /// "2026-06-21T03:47:00Z", in GMT.
  static DateFormatter RFC3339DateFormatter();
  /// "2026-06-21T05:47:00+02:00".
  static DateFormatter RFC3339DateFormatterWithSpecificTimeZone(const TimeZone& zone);

  /// Up to 20 decimals, no grouping.
  static NumberFormatter enUSPosixNumberFormatter();

  /// "Jun 21" and "Jun 21, 05:47", in the default time zone.
  static DateFormatter dateFormatterWithMediumMonthAndNoYear();
  static DateFormatter dateTimeFormatterWithMediumMonthAndNoYear();
};

}  // namespace zenivo
