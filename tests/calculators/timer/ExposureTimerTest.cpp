#include "calculators/timer/ExposureTimer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "app/settings/SettingsKeys.h"
#include "calculators/timer/MainQueueTicks.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

struct ManualTicks : TickSource {
  void start(std::function<void()> action) override { tick = std::move(action); }
  void stop() override { tick = nullptr; }

  std::function<void()> tick;
};

struct RecordedNotifications : NotificationService {
  bool areNotificationsAllowed() const override { return allowed; }
  void scheduleNotification(double seconds, const std::string&, const std::string&) override {
    pending = seconds;
  }
  void removePendingNotifications() override { pending.reset(); }
  void soundEnd() override { ++sounds; }

  bool allowed = true;
  std::optional<double> pending;
  int sounds = 0;
};

struct Listener : ExposureTimerDelegate {
  void timerDidEnd() override { ++ends; }
  void timerWantsNotifications() override { ++wishes; }

  int ends = 0;
  int wishes = 0;
};

class Timer : public testing::Test {
 protected:
  Timer() { make(); }

  /// A new timer over what the old one left in the file: as after a killed process when
  /// the old one had no chance to do anything.
  void make() {
    timer.reset();
    defaults = std::make_unique<UserDefaults>(folder / "settings.plist");
    timer = std::make_unique<ExposureTimer>(*defaults, ticks, notifications, &listener,
                                            [this] { return now; });
  }

  void pass(double seconds) { now = now.dateByAddingTimeInterval(seconds); }

  /// That many seconds, each with its tick.
  void tick(int seconds) {
    for (int i = 0; i < seconds && ticks.tick; ++i) {
      pass(1);
      const auto action = ticks.tick;
      action();
    }
  }

  TemporaryFolder folder;
  std::unique_ptr<UserDefaults> defaults;
  ManualTicks ticks;
  RecordedNotifications notifications;
  Listener listener;
  Date now = Date::withTimeIntervalSince1970(1.8e9);
  std::unique_ptr<ExposureTimer> timer;
};

TEST_F(Timer, CountsDownToTheTickAfterZero) {
  timer->setTimeWithExposureTime(3);
  timer->doStartTimer();
  EXPECT_EQ(notifications.pending, 3);
  tick(3);
  EXPECT_EQ(timer->secondsLeft(), 0);
  EXPECT_TRUE(timer->isTimerRunning());
  tick(1);
  EXPECT_EQ(timer->state(), TimerState::idle);
  EXPECT_EQ(timer->secondsLeft(), 3) << "ready for the next";
  EXPECT_EQ(notifications.sounds, 1);
  EXPECT_EQ(listener.ends, 1);
  EXPECT_FALSE(ticks.tick);
}

TEST_F(Timer, TimesAreRoundedAndImpossibleOnesNone) {
  const struct {
    double time;
    std::int64_t seconds;
  } cases[] = {{0.4, 0},          {0.5, 1}, {59.6, 60},
               {std::nan(""), 0}, {-5, 0},  {std::numeric_limits<double>::infinity(), 0},
               {1e30, 2147483647}};
  for (const auto& [time, seconds] : cases) {
    timer->setTimeWithExposureTime(static_cast<float>(time));
    EXPECT_EQ(timer->seconds(), seconds) << time;
    EXPECT_EQ(timer->appearance().startEnabled, seconds >= 1) << time;
  }
  timer->setTimeWithExposureTime(0.4F);
  timer->doStartTimer();
  EXPECT_EQ(timer->state(), TimerState::idle);
}

TEST_F(Timer, PausesAndResumes) {
  timer->setTimeWithExposureTime(100);
  timer->doStartTimer();
  tick(30);
  timer->doStartTimer();
  EXPECT_EQ(timer->state(), TimerState::paused);
  EXPECT_FALSE(notifications.pending);
  pass(1000);
  EXPECT_EQ(timer->secondsLeft(), 70);
  timer->doStartTimer();
  EXPECT_EQ(notifications.pending, 70);
  tick(10);
  EXPECT_EQ(timer->secondsLeft(), 60);
  timer->cancelTimer();
  EXPECT_FALSE(notifications.pending);
  EXPECT_EQ(timer->secondsLeft(), 100);
}

TEST_F(Timer, CancelWhilePausedGoesBackToThePicker) {
  timer->setPicker({1, 2, 3});
  timer->doStartTimer();
  timer->setPicker({0, 0, 9});
  EXPECT_EQ(timer->seconds(), 3723) << "the picker is hidden while it runs";
  tick(5);
  timer->doStartTimer();
  timer->cancelTimer();
  EXPECT_EQ(timer->state(), TimerState::idle);
  EXPECT_EQ(timer->secondsLeft(), 3723);
  EXPECT_EQ(timer->picker().minutes, 2);
}

TEST_F(Timer, TheBackgroundCostsNoTime) {
  timer->setTimeWithExposureTime(600);
  timer->doStartTimer();
  tick(10);
  timer->appMovedToBackground();
  EXPECT_EQ(defaults->doubleForKey(settings::timer_timeout), now.timeIntervalSince1970() + 590);
  pass(100.4);  // without ticks
  timer->appMovedToForeground();
  EXPECT_EQ(timer->secondsLeft(), 490);
  EXPECT_TRUE(timer->isTimerRunning());
  pass(490);
  timer->appMovedToForeground();
  EXPECT_EQ(timer->state(), TimerState::idle) << "over, without a tick";
  EXPECT_EQ(timer->secondsLeft(), 600);
  EXPECT_FALSE(defaults->boolForKey(settings::timer_is_running));
}

TEST_F(Timer, AKilledProcessLosesNothing) {
  timer->setTimeWithExposureTime(600);
  timer->doStartTimer();
  tick(10);
  pass(20);
  notifications.pending.reset();
  make();
  EXPECT_TRUE(timer->isTimerRunning());
  EXPECT_EQ(notifications.pending, 570) << "the old one may have gone with the process";
  EXPECT_EQ(timer->secondsLeft(), 570);
  EXPECT_EQ(timer->seconds(), 600);
  tick(1);
  EXPECT_EQ(timer->secondsLeft(), 569) << "it ticks on";

  timer->doStartTimer();
  pass(1000);
  make();
  EXPECT_EQ(timer->state(), TimerState::paused);
  EXPECT_EQ(timer->secondsLeft(), 569);
  timer->doStartTimer();
  pass(570);
  make();
  EXPECT_EQ(timer->state(), TimerState::idle) << "its end has passed";
  EXPECT_EQ(timer->secondsLeft(), 600);
  make();
  EXPECT_EQ(timer->state(), TimerState::idle);
}

TEST_F(Timer, RunsWithoutNotifications) {
  notifications.allowed = false;
  defaults->setBool(true, settings::timer_show_notification_warning);
  timer->setTimeWithExposureTime(2);
  timer->doStartTimer();
  EXPECT_EQ(listener.wishes, 1);
  EXPECT_FALSE(notifications.pending);
  tick(3);
  EXPECT_EQ(listener.ends, 1);
  EXPECT_EQ(notifications.sounds, 0);
  defaults->setBool(false, settings::timer_show_notification_warning);
  timer->doStartTimer();
  EXPECT_EQ(listener.wishes, 1) << "not asked again";
}

TEST_F(Timer, CalculatorsSetTheirTimes) {
  timer->setTimeWithExposureModel(Exposure(124.6F, 100, {8, 8}, 0, 0));
  EXPECT_EQ(timer->seconds(), 125);
  timer->doStartTimer();
  timer->setTimeWithTimelapseModel(Timelapse{2.4, 25, 30, 1800, 4});
  EXPECT_EQ(timer->state(), TimerState::idle) << "a new time ends the old countdown";
  EXPECT_FALSE(notifications.pending);
  EXPECT_EQ(timer->timerMode(), TimerMode::timelapse);
  EXPECT_EQ(timer->seconds(), 1800);
  EXPECT_EQ(timer->timelapseModel()->numberOfPhotos(), 750);
  timer->setTimeWithExposureTime(5);
  EXPECT_FALSE(timer->timelapseModel());
}

TEST_F(Timer, ShowsItsState) {
  timer->setTimeWithExposureTime(3661);
  EXPECT_EQ(timer->label(), "01:01:01");
  EXPECT_EQ(timer->appearance().startText, "Start");
  EXPECT_EQ(timer->appearance().cancelAlpha(), 0.5F);
  timer->doStartTimer();
  tick(62);
  EXPECT_EQ(timer->label(), "59:59");
  EXPECT_EQ(timer->appearance().startText, "Pause");
  EXPECT_EQ(timer->appearance().startColor, "red");
  EXPECT_TRUE(timer->appearance().labelShown);
  timer->doStartTimer();
  EXPECT_EQ(timer->appearance().startText, "Resume");
  EXPECT_EQ(timer->appearance().startColor, "blue");
}

TEST(MainQueueTicks, TickUntilTheyAreStopped) {
  MainQueueTicks ticks;
  int count = 0;
  ticks.start([&] {
    if (++count == 1) ticks.stop();
  });
  mainQueue().runFor(1.2);
  EXPECT_EQ(count, 1);
  ticks.start([&] { ++count; });
  ticks.stop();
  mainQueue().runFor(1.2);
  EXPECT_EQ(count, 1) << "stopped before the first";
}

}  // namespace
}  // namespace zenivo
