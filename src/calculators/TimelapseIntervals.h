// The table of usual time-lapse intervals.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zenivo {

/// A kind of event with the interval and the duration that suit it; the first three are
/// keys of the table TimelapseIntervals.
struct TimelapseIntervalRow {
  std::string event;
  std::string interval;
  std::string eventDuration;
  double intervalValue = 0;       ///< seconds
  double eventDurationValue = 0;  ///< hours

  std::string eventText() const;
  std::string intervalText() const;
  std::string eventDurationText() const;
};

/// The rows of `file`, by default the resource timelapseIntervals.plist.  Empty for a
/// file that is missing or is no such table; rows without numbers above 0 are left out.
std::vector<TimelapseIntervalRow> timelapseIntervals();
std::vector<TimelapseIntervalRow> timelapseIntervals(const std::filesystem::path& file);

}  // namespace zenivo
