#include "calculators/timer/ExposureTimer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

std::int64_t wholeSeconds(double seconds) {
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  if (!std::isfinite(seconds)) return 0;
  return static_cast<std::int64_t>(std::clamp(std::round(seconds), 0.0, kMost));
}

TimerPicker pickerFor(std::int64_t seconds) {
  return {seconds / 3600, seconds / 60 % 60, seconds % 60};
}

std::int64_t secondsOf(const TimerPicker& picker) {
  return std::max<std::int64_t>(picker.hours * 3600 + picker.minutes * 60 + picker.seconds, 0);
}

}  // namespace

ExposureTimer::ExposureTimer(UserDefaults& defaults, TickSource& ticks,
                             NotificationService& notifications, ExposureTimerDelegate* delegate,
                             Clock clock)
    : defaults_(defaults), ticks_(ticks), notifications_(notifications), clock_(std::move(clock)) {
  restore();
  delegate_ = delegate;  // not told of what happened before it came
}

void ExposureTimer::restore() {
  picker_ = pickerFor(wholeSeconds(defaults_.doubleForKey(settings::timer_seconds)));
  seconds_ = secondsLeft_ = secondsOf(picker_);
  timeOut_ = defaults_.doubleForKey(settings::timer_timeout);
  if (defaults_.boolForKey(settings::timer_is_running)) {
    state_ = TimerState::running;
    appMovedToForeground();
    if (!isTimerRunning()) return;
    ticks_.start([this] { updateTimer(); });
    // What was scheduled may have gone with the process that did.
    notifications_.removePendingNotifications();
    notifyOfEnd();
    return;
  }
  const std::int64_t left = defaults_.integerForKey(settings::timer_seconds_left);
  if (left <= 0) return;
  state_ = TimerState::paused;
  secondsLeft_ = left;
}

void ExposureTimer::setTimeWithExposureModel(const Exposure& exposure) {
  setTime(TimerMode::exposure, exposure.shutterSpeed());
}

void ExposureTimer::setTimeWithExposureTime(float seconds) {
  setTime(TimerMode::exposure, seconds);
}

void ExposureTimer::setTimeWithTimelapseModel(const Timelapse& timelapse) {
  setTime(TimerMode::timelapse, timelapse.eventDuration);
  timelapse_ = timelapse;
}

void ExposureTimer::setTime(TimerMode mode, double seconds) {
  if (state_ != TimerState::idle) notifications_.removePendingNotifications();
  mode_ = mode;
  timelapse_.reset();
  picker_ = pickerFor(wholeSeconds(seconds));
  enterIdle();
}

void ExposureTimer::setPicker(const TimerPicker& picker) {
  if (state_ != TimerState::idle) return;
  picker_ = picker;
  enterIdle();
}

void ExposureTimer::doStartTimer() {
  if (isTimerRunning()) {
    ticks_.stop();
    notifications_.removePendingNotifications();
    state_ = TimerState::paused;
    saveState();
    changed();
  } else if (state_ == TimerState::paused || seconds_ >= 1) {
    run();
  }
}

void ExposureTimer::run() {
  state_ = TimerState::running;
  saveState();
  ticks_.start([this] { updateTimer(); });
  notifyOfEnd();
  changed();
}

void ExposureTimer::notifyOfEnd() {
  if (notifications_.areNotificationsAllowed()) {
    notifications_.scheduleNotification(static_cast<double>(secondsLeft_),
                                        calculatorText("timer_notification_title"),
                                        calculatorText("timer_notification_message"));
  } else if (delegate_ != nullptr &&
             defaults_.boolForKey(settings::timer_show_notification_warning)) {
    delegate_->timerWantsNotifications();
  }
}

void ExposureTimer::cancelTimer() {
  if (state_ == TimerState::idle) return;
  notifications_.removePendingNotifications();
  enterIdle();
}

void ExposureTimer::updateTimer() {
  if (!isTimerRunning()) return;
  --secondsLeft_;
  if (secondsLeft_ >= 0) {
    changed();
    return;
  }
  if (notifications_.areNotificationsAllowed()) notifications_.soundEnd();
  enterIdle();
  if (delegate_ != nullptr) delegate_->timerDidEnd();
}

void ExposureTimer::enterIdle() {
  ticks_.stop();
  state_ = TimerState::idle;
  seconds_ = secondsOf(picker_);
  secondsLeft_ = seconds_;
  saveState();
  changed();
}

void ExposureTimer::saveState() {
  if (isTimerRunning()) {
    timeOut_ = now() + static_cast<double>(secondsLeft_);
    defaults_.setDouble(timeOut_, settings::timer_timeout);
  }
  defaults_.setBool(isTimerRunning(), settings::timer_is_running);
  defaults_.setInteger(seconds_, settings::timer_seconds);
  defaults_.setInteger(state_ == TimerState::paused ? secondsLeft_ : 0,
                       settings::timer_seconds_left);
  defaults_.synchronize();
}

void ExposureTimer::appMovedToBackground() {
  if (isTimerRunning()) saveState();
}

void ExposureTimer::appMovedToForeground() {
  if (!isTimerRunning()) return;
  const double remaining = timeOut_ - now();
  if (!(remaining > 0)) {
    enterIdle();
    return;
  }
  secondsLeft_ = wholeSeconds(remaining);
  changed();
}

void ExposureTimer::doDone() {
  if (delegate_ != nullptr) delegate_->timerIsDone();
}

void ExposureTimer::changed() {
  if (delegate_ != nullptr) delegate_->timerDidChange();
}

std::string ExposureTimer::labelOf(std::int64_t seconds) {
  const TimerPicker left = pickerFor(std::max<std::int64_t>(seconds, 0));
  if (left.hours == 0) return fmt::format("{:02}:{:02}", left.minutes, left.seconds);
  return fmt::format("{:02}:{:02}:{:02}", left.hours, left.minutes, left.seconds);
}

TimerAppearance ExposureTimer::appearance() const {
  switch (state_) {
    case TimerState::running:
      return {calculatorText("timer_pause"), "red", true, true, false, true};
    case TimerState::paused:
      return {calculatorText("timer_resume"), "blue", true, true, false, true};
    case TimerState::idle:
      break;
  }
  return {calculatorText("timer_start"), "blue", seconds_ >= 1, false, true, false};
}

ExposureTimerTexts ExposureTimerTexts::localized() {
  return {calculatorText("timer_abbr_hours"),
          calculatorText("timer_abbr_minutes"),
          calculatorText("timer_abbr_seconds"),
          calculatorText("timer_enable_notifications_title"),
          calculatorText("timer_enable_notifications_message"),
          calculatorText("timer_enable_notifications"),
          calculatorText("timer_not_now")};
}

}  // namespace zenivo
