// The spans of a light on one day, as texts.

#pragma once

#include <string>

#include "foundation/TimeZone.h"
#include "time/Mjd.h"

namespace zenivo {

/// One or two spans; three and more stand in `firstInterval`, separated by " | ".
/// The mjd of a span is its begin, or its end when it has begun before the day;
/// that of a missing span, and of one that lasts all day, is kAlwaysBelow.
struct TwilightIntervals {
  double mjdFirstInterval = kAlwaysBelow;
  double mjdSecondInterval = kAlwaysBelow;
  std::string firstInterval;
  std::string secondInterval;
};

/// "05:12 - 05:47" on the clock of a zone.  0.0 as start or end opens the span to
/// the begin or the end of the day, printed as "...".
std::string stringForIntervalMjdStart(double mjdStart, double mjdEnd, const TimeZone& zone);

}  // namespace zenivo
