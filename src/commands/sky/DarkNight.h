// A night's darkness, and what the Moon leaves of it.

#pragma once

#include <optional>
#include <vector>

#include "engine/PtMoon.h"
#include "planner/PlannerManager.h"

namespace zenivo::cli {

/// A stretch of time, mjd.
struct TimeSpan {
  double start = 0;
  double end = 0;

  double hours() const { return (end - start) * 24; }
};

/// The Sun is below -18 degrees from dusk to dawn.
struct DarkNight {
  TimeSpan darkness;
  std::vector<TimeSpan> moonless;  ///< within the darkness, with the Moon down, in time order

  double moonlessHours() const;
};

/// The night that begins on the session's day, or the one that ends on it; nullopt
/// when it does not get dark.  In a polar night, dark at noon, too, noon bounds it.
std::optional<DarkNight> nightBeginningOnDay(const PlannerManager& planner);
std::optional<DarkNight> nightEndingOnDay(const PlannerManager& planner);

/// The parts of a span of at most a day in which the Moon is down.
std::vector<TimeSpan> moonlessSpans(const TimeSpan& span, ephemeris::PtMoon& moon);

}  // namespace zenivo::cli
