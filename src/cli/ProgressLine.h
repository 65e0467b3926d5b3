// How far long work has come.

#pragma once

#include <chrono>

namespace zenivo::cli {

/// A line on standard error that a person reads along: nothing is written when that
/// is no terminal, nor for work that is over in a moment.  Its end wipes it out.
class ProgressLine {
 public:
  ProgressLine();
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;
  ~ProgressLine();

  /// 0 to 1; below 1 % there is nothing to be shown yet.
  void show(double progress);

 private:
  using Clock = std::chrono::steady_clock;

  const bool isTerminal_;
  const Clock::time_point begin_ = Clock::now();
  int percent_ = 0;  ///< shown now, if more than 0
};

}  // namespace zenivo::cli
