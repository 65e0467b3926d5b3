// The calculator of the longest exposure with stars as points.

#pragma once

#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/SpotStarsModel.h"

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

  /// The localised name and explanation of an accuracy, and what declination means.
  static std::string accuracyText(SpotStarsAccuracy accuracy);
  static std::string accuracyInfo(SpotStarsAccuracy accuracy);
  static std::string declinationDescription();

  /// The heading over the results.
  static std::string resultsTitle();
  /// By the NPF rule and by the rule of 500.
  std::vector<ResultRow> results() const;
  /// The localised explanations of both rules, in that order.
  static std::vector<std::string> resultInfos();

 private:
  SpotStarsModel model_;
};

}  // namespace zenivo
