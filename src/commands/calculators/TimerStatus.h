// How the exposure timer stands.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "answers/common/Moments.h"
#include "calculators/timer/ExposureTimer.h"
#include "foundation/Date.h"

namespace zenivo::cli {

struct TimerStatus {
  TimerState state = TimerState::idle;
  std::int64_t seconds = 0;      ///< the time that is set; 0 for none
  std::int64_t secondsLeft = 0;  ///< the same while idle
  /// Idle, and the last countdown came to its end: here, or while no program was there.
  bool hasEnded = false;
  std::optional<Date> end;  ///< of the running countdown, or of the one that has ended
};

TimerStatus statusOf(const ExposureTimer& timer, bool hasEnded = false);

/// What the user's settings hold, without a change to them.
TimerStatus keptTimerStatus();

/// "00:42 of 02:00, until 14:03:05" of a running countdown; the time is the local one, with
/// its date for the end of a day or more.
std::string countdownText(const TimerStatus& status);

/// The status as one line.
std::string timerText(const TimerStatus& status);
Json timerJson(const TimerStatus& status);

}  // namespace zenivo::cli
