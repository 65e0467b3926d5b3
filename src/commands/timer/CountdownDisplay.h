// The exposure timer before the user's eyes.

#pragma once

#include <string>

#include "answers/calculators/Countdown.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// "00:42 of 02:00, until 14:03:05" of a running countdown; the time is the local one, with
/// its date for the end of a day or more.
std::string countdownText(const TimerReport& report);

/// How the timer stands, as one line.
std::string timerText(const TimerReport& report);

/// On a terminal a line that is written over each second, and wiped out at the end.
/// Elsewhere a line now and then, more often as the end comes nearer.
class CountdownDisplay {
 public:
  /// A silent one writes nothing.
  CountdownDisplay(const Terminal& terminal, bool isSilent)
      : terminal_(terminal), isSilent_(isSilent) {}
  CountdownDisplay(const CountdownDisplay&) = delete;
  CountdownDisplay& operator=(const CountdownDisplay&) = delete;
  ~CountdownDisplay();

  /// To be called with each second of a running countdown.
  void show(const TimerReport& report);
  /// Writes text that stays.
  void say(const std::string& text);
  /// The bell of the terminal.
  void ring() const;

 private:
  std::string wipe();

  const Terminal terminal_;
  const bool isSilent_;
  bool isShown_ = false;
  bool hasBegun_ = false;
};

}  // namespace zenivo::cli
