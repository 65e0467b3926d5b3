// Interval, clip and event of a time-lapse.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "answers/calculators/Inverse.h"
#include "answers/calculators/Readout.h"
#include "answers/common/CalculatorSession.h"
#include "calculators/TimelapseCalculator.h"

namespace zenivo {

/// Values that are missing stay as they are kept.
struct TimelapseQuestion {
  std::optional<double> interval = {};  ///< seconds, here and below
  std::optional<double> clip = {};
  std::optional<double> duration = {};
  std::optional<double> fps = {};        ///< a whole number
  std::optional<double> imageSize = {};  ///< megabytes
  /// In place of interval and duration: an event of the table, by its name or number.  The clip
  /// is then solved for.
  std::optional<std::string> event = {};
  std::optional<TimelapseField> solveFor = {};  ///< one of the words below
};

struct TimelapseReport {
  UnitSystem units = UnitSystem::metric;
  Timelapse model;
  TimelapseField solved = TimelapseField::shootingInterval;
};

/// The words of what can be solved for.
inline constexpr Word<TimelapseField> kTimelapseWords[] = {
    {TimelapseField::shootingInterval, "interval"},
    {TimelapseField::clipLength, "clip"},
    {TimelapseField::eventDuration, "duration"}};

/// What was given is kept in the session.  Throws InputError for an event that is none and for
/// what makes no sense together.
TimelapseReport answer(const TimelapseQuestion& question, CalculatorSession& session);

/// What the session keeps.
TimelapseReport keptTimelapse(CalculatorSession& session);

Readout readout(const TimelapseReport& report);
Json json(const TimelapseReport& report);

struct IntervalTableQuestion {};
struct IntervalTableReport {
  std::vector<TimelapseIntervalRow> rows;
};

IntervalTableReport answer(const IntervalTableQuestion& question, CalculatorSession& session);

Json json(const IntervalTableReport& report);

}  // namespace zenivo
