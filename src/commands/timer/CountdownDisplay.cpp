#include "commands/timer/CountdownDisplay.h"

#include <fmt/format.h>

#include <cstdio>

#include "foundation/DateFormatter.h"

namespace zenivo::cli {
namespace {

constexpr const char* kWipe = "\r\x1b[K";
constexpr int kWide = 60;  // a line that wraps could not be wiped out

/// Whether a log of the countdown has a line at this time left, seconds.
bool isWorthALine(std::int64_t left) {
  struct Stretch {
    std::int64_t upTo;
    std::int64_t every;
  };
  constexpr Stretch kStretches[] = {{10, 10}, {60, 30}, {600, 60}, {3600, 600}};
  for (const auto& [upTo, every] : kStretches) {
    if (left <= upTo) return left > 0 && left % every == 0;
  }
  return left % 3600 == 0;
}

std::string endText(const TimerReport& report) {
  constexpr std::int64_t kDay = 86400;  // seconds
  const char* pattern = report.seconds < kDay ? "%H:%M:%S" : "%E4Y-%m-%d %H:%M:%S";
  return DateFormatter(pattern, TimeZone::systemTimeZone()).stringFromDate(*report.end);
}

std::string leftText(const TimerReport& report) {
  return fmt::format("{} of {}", ExposureTimer::labelOf(report.secondsLeft),
                     ExposureTimer::labelOf(report.seconds));
}

}  // namespace

std::string countdownText(const TimerReport& report) {
  return fmt::format("{}, until {}", leftText(report), endText(report));
}

std::string timerText(const TimerReport& report) {
  if (report.state == TimerState::running) return "Running: " + countdownText(report) + "\n";
  if (report.state == TimerState::paused) return "Paused: " + leftText(report) + "\n";
  if (report.seconds == 0) return "Not running: no time is set\n";
  const std::string time = ExposureTimer::labelOf(report.seconds);
  return report.hasEnded ? fmt::format("Ended: {}, at {}\n", time, endText(report))
                         : fmt::format("Not running: {} is set\n", time);
}

CountdownDisplay::~CountdownDisplay() {
  std::fputs(wipe().c_str(), stdout);
  std::fflush(stdout);
}

std::string CountdownDisplay::wipe() {
  if (!isShown_) return "";
  isShown_ = false;
  return kWipe;
}

void CountdownDisplay::show(const TimerReport& report) {
  if (isSilent_) return;
  if (terminal_.isTerminal) {
    std::string line = wipe() + styled(countdownText(report), Style::heading, terminal_);
    if (terminal_.width >= kWide) line += styled("  Ctrl-C pauses", Style::faint, terminal_);
    writeToStandardOutput(line);
    isShown_ = true;
  } else if (!hasBegun_ || isWorthALine(report.secondsLeft)) {
    writeToStandardOutput(countdownText(report) + "\n");
  }
  hasBegun_ = true;
}

void CountdownDisplay::say(const std::string& text) {
  if (!isSilent_) writeToStandardOutput(wipe() + text);
}

void CountdownDisplay::ring() const {
  if (!isSilent_ && terminal_.isTerminal) writeToStandardOutput("\a");
}

}  // namespace zenivo::cli
