#include "commands/calculators/CountdownDisplay.h"

#include <fmt/format.h>

#include <cstdio>

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

}  // namespace

CountdownDisplay::~CountdownDisplay() {
  std::fputs(wipe().c_str(), stdout);
  std::fflush(stdout);
}

std::string CountdownDisplay::wipe() {
  if (!isShown_) return "";
  isShown_ = false;
  return kWipe;
}

void CountdownDisplay::show(const TimerStatus& status) {
  if (isSilent_) return;
  if (terminal_.isTerminal) {
    std::string line = wipe() + styled(countdownText(status), Style::heading, terminal_);
    if (terminal_.width >= kWide) line += styled("  Ctrl-C pauses", Style::faint, terminal_);
    writeToStandardOutput(line);
    isShown_ = true;
  } else if (!hasBegun_ || isWorthALine(status.secondsLeft)) {
    writeToStandardOutput(countdownText(status) + "\n");
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
