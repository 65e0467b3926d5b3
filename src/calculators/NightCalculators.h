// The calculators of the night: the longest exposure with stars as points, and star trails.

#pragma once

#include <array>
#include <string>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/NightModel.h"
#include "calculators/models/SpotStarsModel.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

class SpotStarsCalculator : public CameraCalculator {
 public:
  /// Once in the life of the settings, a declination of exactly 35 degrees, which an
  /// early version put there of its own accord, becomes 0.
  explicit SpotStarsCalculator(const CalculatorEnvironment& environment);

  /// Takes the inputs from the settings and sensor and fixed values from the current
  /// camera: to be called whenever the calculator is shown.
  void load();
  void save() const { model_.saveUserDefaults(defaults()); }

  const SpotStarsModel& model() const { return model_; }

  // Edits.  What the camera fixes cannot be changed.
  EditResult setLens(const LensInput& lens);
  EditResult setAperture(const Aperture& aperture);
  void setDeclination(float degrees) { model_.setDeclination(degrees); }
  void setAccuracy(SpotStarsAccuracy accuracy) { model_.setAccuracy(accuracy); }

 private:
  SpotStarsModel model_;
};

/// A place on the drawing of the trails, in its units, y downwards.
struct TrailPoint {
  double x = 0;
  double y = 0;
};

/// A star on the drawing of the trails: its angle about the pole in degrees, and its distance
/// from it in parts of the drawing's radius.
struct TrailStar {
  double angle;
  double radius;
};

class NightStarTrailsView;

class NightStarTrailsViewDelegate {
 public:
  virtual ~NightStarTrailsViewDelegate() = default;
  /// The user has dragged the trails to an angle, degrees.
  virtual void nightStarTrailsView(const NightStarTrailsView&, float /*angle*/) {}
};

/// NightStarTrailsView: the drawing of the trails, which can be dragged.
class NightStarTrailsView {
 public:
  /// The delegate must outlive the view.
  explicit NightStarTrailsView(NightStarTrailsViewDelegate* delegate = nullptr)
      : delegate_(delegate) {}

  /// A decoration: where the stars stand before they trail.
  static const std::array<TrailStar, 17>& stars();

  /// The angle of a touch about the centre of the trails, from 0 up to 360 degrees, becomes
  /// the angle swept, and the delegate is told.
  void touch(const TrailPoint& touch, const TrailPoint& circleCenter);
  float angle() const { return angle_; }

 private:
  NightStarTrailsViewDelegate* delegate_;
  float angle_ = 0;
};

/// Ties the exposure time to the angle that the stars sweep: an edit of one computes
/// the other.
class StarTrailCalculator : public NightStarTrailsViewDelegate {
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

  void nightStarTrailsView(const NightStarTrailsView& view, float angle) override;

 private:
  UserDefaults& defaults_;
  NightModel model_;
};

}  // namespace zenivo
