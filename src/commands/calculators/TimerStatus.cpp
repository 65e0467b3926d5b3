#include "commands/calculators/TimerStatus.h"

#include <fmt/format.h>

#include "answers/common/UserSettings.h"
#include "app/settings/SettingsKeys.h"
#include "calculators/timer/MainQueueTicks.h"
#include "commands/calculators/TerminalNotifications.h"
#include "foundation/DateFormatter.h"

namespace zenivo::cli {
namespace {

constexpr std::int64_t kDay = 86400;  // seconds

std::string nameOf(TimerState state) {
  switch (state) {
    case TimerState::running:
      return "running";
    case TimerState::paused:
      return "paused";
    case TimerState::idle:
      break;
  }
  return "idle";
}

std::string endText(const TimerStatus& status) {
  const char* pattern = status.seconds < kDay ? "%H:%M:%S" : "%E4Y-%m-%d %H:%M:%S";
  return DateFormatter(pattern, TimeZone::systemTimeZone()).stringFromDate(*status.end);
}

std::string leftText(const TimerStatus& status) {
  return fmt::format("{} of {}", ExposureTimer::labelOf(status.secondsLeft),
                     ExposureTimer::labelOf(status.seconds));
}

}  // namespace

TimerStatus statusOf(const ExposureTimer& timer, bool hasEnded) {
  TimerStatus status{timer.state(), timer.seconds(), timer.secondsLeft(), hasEnded, std::nullopt};
  if (timer.isTimerRunning() || hasEnded) {
    status.end = Date::withTimeIntervalSince1970(timer.timeOutTimeInterval());
  }
  return status;
}

TimerStatus keptTimerStatus() {
  UserSettings settings;
  const bool wasRunning = settings.copy().boolForKey(settings::timer_is_running);
  MainQueueTicks ticks;
  TerminalNotifications notifications([](const std::string&) {}, [] {});
  const ExposureTimer timer(settings.copy(), ticks, notifications);
  return statusOf(timer, wasRunning && !timer.isTimerRunning());
}

std::string countdownText(const TimerStatus& status) {
  return fmt::format("{}, until {}", leftText(status), endText(status));
}

std::string timerText(const TimerStatus& status) {
  if (status.state == TimerState::running) return "Running: " + countdownText(status) + "\n";
  if (status.state == TimerState::paused) return "Paused: " + leftText(status) + "\n";
  if (status.seconds == 0) return "Not running: no time is set\n";
  const std::string time = ExposureTimer::labelOf(status.seconds);
  return status.hasEnded ? fmt::format("Ended: {}, at {}\n", time, endText(status))
                         : fmt::format("Not running: {} is set\n", time);
}

Json timerJson(const TimerStatus& status) {
  const TimeZone zone = TimeZone::systemTimeZone();
  return {{"state", nameOf(status.state)},
          {"seconds", status.seconds},
          {"secondsLeft", status.secondsLeft},
          {"label", ExposureTimer::labelOf(status.secondsLeft)},
          {"ended", status.hasEnded},
          {"end", status.end ? momentJson(*status.end, zone) : Json(nullptr)}};
}

}  // namespace zenivo::cli
