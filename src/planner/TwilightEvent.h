// A span of the day that begins and ends with a crossing of the Sun.

#pragma once

#include "time/Mjd.h"

namespace zenivo {

/// Start and end, each an mjd or a sentinel of engine/Mjd.h, and the same
/// moments in seconds since the reference date.
class TwilightEvent {
 public:
  /// Neither of the two falls in the day.
  TwilightEvent() = default;
  TwilightEvent(double mjdStart, double mjdEnd);

  double mjdStart() const { return mjdStart_; }
  double mjdEnd() const { return mjdEnd_; }

  /// On the nearest whole minute.  Without meaning (0) for a sentinel.
  double startTimeInterval() const { return startTimeInterval_; }
  double endTimeInterval() const { return endTimeInterval_; }

  friend bool operator==(const TwilightEvent&, const TwilightEvent&) = default;

 private:
  double mjdStart_ = kNotThisDay;
  double mjdEnd_ = kNotThisDay;
  double startTimeInterval_ = 0;
  double endTimeInterval_ = 0;
};

}  // namespace zenivo
