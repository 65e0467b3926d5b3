// The time-lapse calculator.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/TimelapseIntervals.h"
#include "calculators/models/Timelapse.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

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

  /// A field as text, "--" where it does not exist.
  std::string textOf(TimelapseField field) const;

  /// The free variable, the number of photographs and the memory they need.
  std::vector<ResultRow> results() const;

 private:
  void calculateInverseData();

  UserDefaults& defaults_;
  Timelapse model_;
  TimelapseField freeVariable_ = TimelapseField::shootingInterval;
};

}  // namespace zenivo
