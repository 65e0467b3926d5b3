// zenivo timelapse intervals: what suits which event.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>

#include "calculators/TimelapseIntervals.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// The subcommand of zenivo timelapse.
class TimelapseIntervalsCommand {
 public:
  void addTo(CLI::App& command);
  bool isChosen() const { return app_->parsed(); }
  std::string run(const Terminal& terminal) const;

 private:
  const CLI::App* app_ = nullptr;
  bool wantsJson_ = false;
};

/// The row of the table that is meant by a text or a number.  Throws InputError.
TimelapseIntervalRow findEvent(std::string_view typed);

}  // namespace zenivo::cli
