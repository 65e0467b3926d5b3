#include "answers/calculators/Countdown.h"

#include <string>

#include "app/settings/SettingsKeys.h"
#include "calculators/ExposureCalculator.h"
#include "calculators/NightCalculators.h"

namespace zenivo {
namespace {

/// For a timer that is only looked at.
struct NoTicks : TickSource {
  void start(std::function<void()> /*tick*/) override {}
  void stop() override {}
};

struct NoNotifications : NotificationService {
  bool areNotificationsAllowed() const override { return false; }
  void scheduleNotification(double /*seconds*/, const std::string& /*title*/,
                            const std::string& /*body*/) override {}
  void removePendingNotifications() override {}
  void soundEnd() override {}
};

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

}  // namespace

TimerReport reportOf(const ExposureTimer& timer, bool hasEnded) {
  TimerReport report{timer.state(), timer.seconds(), timer.secondsLeft(), hasEnded, std::nullopt};
  if (timer.isTimerRunning() || hasEnded) {
    report.end = Date::withTimeIntervalSince1970(timer.timeOutTimeInterval());
  }
  return report;
}

TimerReport answer(const TimerQuestion& /*question*/, CalculatorSession& session) {
  const bool wasRunning = session.settings().boolForKey(settings::timer_is_running);
  NoTicks ticks;
  NoNotifications notifications;
  const ExposureTimer timer(session.settings(), ticks, notifications);
  return reportOf(timer, wasRunning && !timer.isTimerRunning());
}

Json json(const TimerReport& report, const TimeZone& zone) {
  return {{"state", nameOf(report.state)},
          {"seconds", report.seconds},
          {"secondsLeft", report.secondsLeft},
          {"label", ExposureTimer::labelOf(report.secondsLeft)},
          {"ended", report.hasEnded},
          {"end", report.end ? momentJson(*report.end, zone) : Json(nullptr)}};
}

CountdownReport answer(const CountdownQuestion& question, CalculatorSession& session) {
  switch (question.calculator) {
    case TimedCalculator::timelapse: {
      const TimelapseReport timelapse = keptTimelapse(session);
      return {timelapse.model.eventDuration, timelapse};
    }
    case TimedCalculator::trails:
      return {StarTrailCalculator(session.settings()).model().exposureTime, std::nullopt};
    case TimedCalculator::stars: {
      SpotStarsCalculator calculator(session.environment());
      calculator.load();
      return {calculator.model().maxExposureTimeWithNPFRule(), std::nullopt};
    }
    case TimedCalculator::exposure:
      break;
  }
  ExposureCalculator calculator(session.environment());
  calculator.load();
  return {calculator.equivalentExposureModel().shutterSpeed(), std::nullopt};
}

}  // namespace zenivo
