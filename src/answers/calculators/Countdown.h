// How the exposure timer stands, and the times that it can count.

#pragma once

#include <cstdint>
#include <optional>

#include "answers/calculators/TimeLapses.h"
#include "answers/common/CalculatorSession.h"
#include "answers/common/Moments.h"
#include "calculators/timer/ExposureTimer.h"
#include "foundation/Date.h"

namespace zenivo {

struct TimerQuestion {};

struct TimerReport {
  TimerState state = TimerState::idle;
  std::int64_t seconds = 0;      ///< the time that is set; 0 for none
  std::int64_t secondsLeft = 0;  ///< the same while idle
  /// Idle, and the last countdown came to its end: here, or while no program was there.
  bool hasEnded = false;
  std::optional<Date> end;  ///< of the running countdown, or of the one that has ended
};

/// What the session's settings hold, without a change to the user's.
TimerReport answer(const TimerQuestion& question, CalculatorSession& session);

TimerReport reportOf(const ExposureTimer& timer, bool hasEnded = false);

/// With the end in that zone.
Json json(const TimerReport& report, const TimeZone& zone);

/// The calculators whose time can be counted down.
enum class TimedCalculator { exposure, timelapse, trails, stars };

/// Which time did a calculator find last?
struct CountdownQuestion {
  TimedCalculator calculator;
};

struct CountdownReport {
  double seconds = 0;
  std::optional<TimelapseReport> timelapse;  ///< where it is a time-lapse's
};

CountdownReport answer(const CountdownQuestion& question, CalculatorSession& session);

}  // namespace zenivo
