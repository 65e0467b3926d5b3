#include "cli/ProgressLine.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>

namespace zenivo::cli {
namespace {

constexpr std::chrono::milliseconds kMoment{400};
constexpr const char* kWipe = "\r\x1b[K";

}  // namespace

ProgressLine::ProgressLine() : isTerminal_(::isatty(STDERR_FILENO) == 1) {}

ProgressLine::~ProgressLine() {
  if (percent_ > 0) std::fputs(kWipe, stderr);
}

void ProgressLine::show(double progress) {
  if (!isTerminal_ || Clock::now() - begin_ < kMoment) return;
  const int percent = static_cast<int>(progress * 100);
  if (percent == percent_) return;
  percent_ = percent;
  fmt::print(stderr, "{}searching ... {} %", kWipe, percent);
  std::fflush(stderr);
}

}  // namespace zenivo::cli
