// The countdown for long exposures and time-lapse sessions.

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "calculators/models/Exposure.h"
#include "calculators/models/Timelapse.h"
#include "calculators/timer/TimerServices.h"
#include "foundation/Date.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

enum class TimerMode { exposure = 0, timelapse = 1 };

enum class TimerState { idle, running, paused };

/// The time as a picker holds it.
struct TimerPicker {
  std::int64_t hours = 0;
  std::int64_t minutes = 0;
  std::int64_t seconds = 0;
};

/// What a display of the timer shows.
struct TimerAppearance {
  std::string startText;   ///< localised: start, pause or resume
  std::string startColor;  ///< "blue" or "red"
  bool startEnabled;
  bool cancelEnabled;
  bool pickerShown;
  bool labelShown;

  float startAlpha() const { return startEnabled ? 1.0F : 0.5F; }
  float cancelAlpha() const { return cancelEnabled ? 1.0F : 0.5F; }
};

/// Told of the timer.
class ExposureTimerDelegate {
 public:
  virtual ~ExposureTimerDelegate() = default;

  /// State or time left have changed.
  virtual void timerDidChange() {}
  /// The countdown has come to its end.
  virtual void timerDidEnd() {}
  /// Notifications are off: the user may be asked to allow them (see the timer's texts).
  virtual void timerWantsNotifications() {}
  /// The user is done with the timer.
  virtual void timerIsDone() {}
};

/// A countdown in whole seconds.  While it runs the settings hold its absolute end, and
/// while it is paused the time left, so that it goes on where it was after the program
/// has been in the background, and after it was killed.
///
/// Main thread.  Everything given to the constructor must outlive the timer.
class ExposureTimer {
 public:
  using Clock = std::function<Date()>;

  /// Takes up what the settings hold: a countdown that still runs, whose notification is
  /// scheduled anew, or a paused one.
  ExposureTimer(UserDefaults& defaults, TickSource& ticks, NotificationService& notifications,
                ExposureTimerDelegate* delegate = nullptr, Clock clock = Date::now);
  ExposureTimer(const ExposureTimer&) = delete;
  ExposureTimer& operator=(const ExposureTimer&) = delete;
  /// Stops the ticks; the settings keep the countdown.
  ~ExposureTimer() { ticks_.stop(); }

  // Setting a time ends what was running.  Fractions of a second are rounded to the
  // nearest whole one; a time that is not a number, negative or infinite is 0.

  void setTimeWithExposureModel(const Exposure& exposure);
  void setTimeWithExposureTime(float seconds);
  /// The duration of the event; the model is kept for its results.
  void setTimeWithTimelapseModel(const Timelapse& timelapse);
  /// The time of the picker, while the timer is idle.
  void setPicker(const TimerPicker& picker);

  /// The start button: starts, pauses or resumes.  Nothing happens with less than a
  /// second set.
  void doStartTimer();
  /// Back to the time that was set.
  void cancelTimer();
  /// A second has passed.  The countdown ends with the tick after 0.
  void updateTimer();

  void appMovedToBackground();
  /// To be called when the program or the timer's display come to the front: the time
  /// left comes from the clock, and a countdown that is over is reset.
  void appMovedToForeground();
  void doDone();

  TimerMode timerMode() const { return mode_; }
  TimerState state() const { return state_; }
  bool isTimerRunning() const { return state_ == TimerState::running; }
  std::int64_t seconds() const { return seconds_; }
  std::int64_t secondsLeft() const { return secondsLeft_; }
  TimerPicker picker() const { return picker_; }
  /// The end of the countdown, in seconds since 1970; of the last one while none runs.
  double timeOutTimeInterval() const { return timeOut_; }
  const std::optional<Timelapse>& timelapseModel() const { return timelapse_; }

  /// The time left: "05:00", from an hour on "01:05:00".
  std::string label() const { return labelOf(secondsLeft_); }
  static std::string labelOf(std::int64_t seconds);
  TimerAppearance appearance() const;

 private:
  void setTime(TimerMode mode, double seconds);
  void restore();
  void enterIdle();
  void run();
  void saveState();
  double now() const { return clock_().timeIntervalSince1970(); }
  void notifyOfEnd();
  void changed();

  UserDefaults& defaults_;
  TickSource& ticks_;
  NotificationService& notifications_;
  ExposureTimerDelegate* delegate_ = nullptr;
  Clock clock_;

  TimerMode mode_ = TimerMode::exposure;
  TimerState state_ = TimerState::idle;
  TimerPicker picker_;
  std::int64_t seconds_ = 0;
  std::int64_t secondsLeft_ = 0;
  double timeOut_ = 0;
  std::optional<Timelapse> timelapse_;
};

/// Texts around the timer: abbreviations under the picker, and the request to allow
/// notifications with its two answers.
struct ExposureTimerTexts {
  std::string hours;
  std::string minutes;
  std::string seconds;
  std::string enableNotificationsTitle;
  std::string enableNotificationsMessage;
  std::string enableNotifications;
  std::string notNow;

  static ExposureTimerTexts localized();
};

}  // namespace zenivo
