// zenivo timer: the countdown of long exposures.

#include <fmt/format.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include "answers/calculators/Countdown.h"
#include "answers/calculators/TimeLapses.h"
#include "answers/common/CalculatorSession.h"
#include "app/settings/SettingsKeys.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/timer/MainQueueTicks.h"
#include "commands/calculators/Options.h"
#include "commands/common/Table.h"
#include "commands/timer/Commands.h"
#include "commands/timer/CountdownDisplay.h"
#include "commands/timer/Notifications.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

constexpr double kBetweenLooks = 0.1;  // seconds, at Ctrl-C

void expectCountable(double seconds) {
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  if (std::round(seconds) >= 1 && seconds <= kMost) return;
  throw InputError("a countdown takes whole seconds, from 1 to 2147483647");
}

/// What a time-lapse needs: what followed from the rest of it, photographs and memory.
std::string needsOf(const TimelapseReport& timelapse, const Terminal& terminal) {
  const Readout lines = readout(timelapse);
  Table table({{""}, {""}});
  for (const ReadoutRow& row : lines.inputs) {
    if (row.role == Role::solved) table.addRow({row.label, row.quantity.text});
  }
  for (const ReadoutRow& row : lines.results) table.addRow({row.label, row.quantity.text});
  return table.text(terminal);
}

/// The timer as the user's settings keep it.
TimerReport keptTimer(Home& home) {
  CalculatorSession session(home);
  return answer(TimerQuestion(), session);
}

/// Throws std::runtime_error unless the file of the settings holds what the timer stored.
void expectKept(UserDefaults& defaults) {
  Error error;
  if (!defaults.synchronize(&error)) {
    throw std::runtime_error("the countdown cannot be kept: " + error.description);
  }
}

/// Whether another process has paused, reset or replaced the countdown.
bool isChangedElsewhere(const ExposureTimer& timer, UserDefaults& defaults) {
  if (!defaults.synchronize()) return false;  // then the countdown goes on as it was
  return !defaults.boolForKey(settings::timer_is_running) ||
         defaults.doubleForKey(settings::timer_timeout) != timer.timeOutTimeInterval();
}

/// Ticks are lost while the machine sleeps.
void catchUpWithClock(ExposureTimer& timer) {
  constexpr double kMostOff = 3;  // seconds
  const double left = timer.timeOutTimeInterval() - Date::now().timeIntervalSince1970();
  const double off = left - static_cast<double>(timer.secondsLeft());
  if (std::abs(off) > kMostOff) timer.appMovedToForeground();
}

class TimerCommand : public Command {
 public:
  explicit TimerCommand(Home& home) : home_(home) {}

  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn& goOn) override;

 private:
  bool isTimeGiven() const { return durationOption_->count() > 0 || calculator_.value(); }
  CountdownReport timeGiven() const;
  std::string start(const Terminal& terminal, const GoOn& goOn) const;
  std::string count(ExposureTimer& timer, CountdownDisplay& display, const GoOn& goOn) const;
  std::string print(const TimerReport& report) const {
    return wantsJson_ ? json(report, TimeZone::systemTimeZone()).dump(2) + "\n" : timerText(report);
  }

  Home& home_;
  CLI::App* status_ = nullptr;
  CLI::App* reset_ = nullptr;
  std::string duration_;
  const CLI::Option* durationOption_ = nullptr;
  WordOption<TimedCalculator> calculator_{{{"exposure", TimedCalculator::exposure},
                                           {"timelapse", TimedCalculator::timelapse},
                                           {"trails", TimedCalculator::trails},
                                           {"stars", TimedCalculator::stars}}};
  bool wantsJson_ = false;
};

void TimerCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("timer", "Count down a long exposure");
  CLI::Option* duration =
      app->add_option("DURATION", duration_, "The time, as in 90, 90s, 2min 30s, 1:30:00 or 1h")
          ->type_name("");
  calculator_
      .addTo(*app, "--from",
             "Take the time from a calculator as it is saved: the exposure, the event of a "
             "time-lapse, the trail of stars, or the longest time that keeps stars points",
             "CALCULATOR")
      ->excludes(duration);
  app->add_flag("--json", wantsJson_, "Print JSON, at the end");
  durationOption_ = duration;
  status_ = app->add_subcommand("status", "How the countdown stands; changes nothing");
  reset_ = app->add_subcommand("reset", "End the countdown; the time stays set");
  for (CLI::App* each : {status_, reset_}) {
    each->add_flag("--json", wantsJson_, "Print JSON");
    each->footer("A countdown is started, and goes on, with zenivo timer.");
  }
  app->footer(
      "Ctrl-C pauses.  Without a time a paused countdown goes on, one whose program has gone is\n"
      "shown again, and else the last time is counted once more.  A countdown runs on while no\n"
      "program shows it.  The end is told by the desktop if it takes notifications, and by the\n"
      "bell of the terminal.\n"
      "\n"
      "Examples:\n"
      "  zenivo timer 2s\n"
      "  zenivo timer status --json\n"
      "  zenivo timer reset");
}

std::string TimerCommand::run(const Terminal& terminal, const GoOn& goOn) {
  setLogThreshold(LogLevel::none);  // failures are thrown with what the log would say
  if (!status_->parsed() && !reset_->parsed()) return start(terminal, goOn);
  if (isTimeGiven()) throw InputError("a time is counted without status and reset; leave one out");
  if (status_->parsed()) return print(keptTimer(home_));
  MainQueueTicks ticks;
  TerminalNotifications notifications([](const std::string&) {}, [] {});
  ExposureTimer timer(home_.zenivoUserDefaults(), ticks, notifications);
  timer.cancelTimer();
  expectKept(home_.zenivoUserDefaults());
  return print(reportOf(timer));
}

CountdownReport TimerCommand::timeGiven() const {
  CountdownReport time;
  if (calculator_.value()) {
    CalculatorSession session(home_);
    time = answer(CountdownQuestion{*calculator_.value()}, session);
  } else if (const auto seconds = CameraValuesParser::parseTimeDuration(duration_)) {
    time.seconds = *seconds;
  } else {
    throw InputError(fmt::format("{} is no duration; write it as in 90s, 2min 30s or 1:30:00",
                                 inQuotes(duration_)));
  }
  expectCountable(time.seconds);
  return time;
}

std::string TimerCommand::start(const Terminal& terminal, const GoOn& goOn) const {
  const TimerReport before = keptTimer(home_);
  const CountdownReport time = isTimeGiven() ? timeGiven() : CountdownReport();
  if (!isTimeGiven() && before.seconds == 0) {
    throw InputError("no time is set; write one as in zenivo timer 90s");
  }
  CountdownDisplay display(terminal, wantsJson_);
  TerminalNotifications notifications(
      [&display](const std::string& line) { display.say(line + "\n"); },
      [&display] { display.ring(); });
  MainQueueTicks ticks;
  UserDefaults& defaults = home_.zenivoUserDefaults();
  ExposureTimer timer(defaults, ticks, notifications);
  if (!isTimeGiven() && before.hasEnded) {
    expectKept(defaults);
    return print(before);
  }
  if (time.timelapse) {
    timer.setTimeWithTimelapseModel(time.timelapse->model);
    display.say(needsOf(*time.timelapse, terminal));
  } else if (isTimeGiven()) {
    timer.setTimeWithExposureTime(static_cast<float>(time.seconds));
  }
  return count(timer, display, goOn);
}

std::string TimerCommand::count(ExposureTimer& timer, CountdownDisplay& display,
                                const GoOn& goOn) const {
  UserDefaults& defaults = home_.zenivoUserDefaults();
  bool isWanted = goOn(0);  // before the start, so that what stops it later can pause it
  if (!timer.isTimerRunning()) timer.doStartTimer();
  expectKept(defaults);
  std::int64_t shown = -1;
  while (timer.isTimerRunning() && isWanted) {
    if (timer.secondsLeft() != shown) {
      if (isChangedElsewhere(timer, defaults)) return print(keptTimer(home_));
      shown = timer.secondsLeft();
      display.show(reportOf(timer));
    }
    mainQueue().runFor(kBetweenLooks);
    catchUpWithClock(timer);
    isWanted = goOn(0);
  }
  if (timer.isTimerRunning() && timer.secondsLeft() > 0) {
    timer.doStartTimer();
    expectKept(defaults);
    throw Interrupted(wantsJson_ ? print(reportOf(timer)) : "",
                      fmt::format("paused with {} left; zenivo timer goes on", timer.label()));
  }
  timer.cancelTimer();
  expectKept(defaults);
  return print(reportOf(timer, true));
}

}  // namespace

std::unique_ptr<Command> makeTimerCommand(Home& home) {
  return std::make_unique<TimerCommand>(home);
}

}  // namespace zenivo::cli
