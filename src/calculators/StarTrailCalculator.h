// The star trail calculator.

#pragma once

#include <string>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/NightModel.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// A place on the drawing of the trails, in its units, y downwards.
struct TrailPoint {
  double x = 0;
  double y = 0;
};

/// Ties the exposure time to the angle that the stars sweep: an edit of one computes
/// the other.
class StarTrailCalculator {
 public:
  /// The settings must outlive the calculator.
  explicit StarTrailCalculator(UserDefaults& defaults);

  /// A stored time of 0 reads as 60 seconds.
  void load();
  void save() const;

  const NightModel& model() const { return model_; }

  /// Seconds.
  void setExposureTime(float seconds);
  /// Degrees.
  void setAngle(float degrees);
  void setIsNorthHemisphere(bool isNorth) { model_.isNorthHemisphere = isNorth; }

  /// The angle of a touch about the centre of the trails, from 0 up to 360 degrees,
  /// becomes the angle swept.
  void setAngleByTouch(const TrailPoint& touch, const TrailPoint& circleCenter);

  /// The localised name of the hemisphere whose pole the stars turn about.
  std::string hemisphereText() const;

  /// Exposure time, angle and hemisphere.
  std::vector<ResultRow> results() const;

 private:
  UserDefaults& defaults_;
  NightModel model_;
};

}  // namespace zenivo
