// The time-lapse calculator, and the table of usual intervals.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/Timelapse.h"
#include "foundation/UserDefaults.h"

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

/// Fields of the calculator by number; the first three can be the free variable.
enum class TimelapseField {
  shootingInterval = 0,
  clipLength = 1,
  eventDuration = 2,
  fps = 3,
  imageSize = 4,
};

/// Interval, clip and event: one of the three, the free variable, follows from the
/// others.  Every edit computes it.
class TimelapseCalculator {
 public:
  /// The settings must outlive the calculator.
  explicit TimelapseCalculator(UserDefaults& defaults);

  /// What is stored as 0 takes its default: 30 seconds of clip at 25 frames from half an
  /// hour, 4 MB a photograph.  The interval, which is not stored, follows.
  void load();
  void save() const;

  const Timelapse& model() const { return model_; }

  TimelapseField freeVariable() const { return freeVariable_; }
  /// Nothing happens for fps and imageSize.
  void setFreeVariable(TimelapseField variable);

  static std::string labelOf(TimelapseField field);

  /// Seconds, frames a second or megabytes.  A frame rate loses its fraction.
  void setValue(TimelapseField field, double value);

  /// Takes interval and duration from a row of the table and computes the clip.
  void selectRow(const TimelapseIntervalRow& row);

 private:
  void calculateInverseData();

  UserDefaults& defaults_;
  Timelapse model_;
  TimelapseField freeVariable_ = TimelapseField::shootingInterval;
};

}  // namespace zenivo
