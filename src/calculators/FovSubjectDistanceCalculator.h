// The calculator of the distance from which an object fits into the frame.

#pragma once

#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/FovSubjectDistance.h"

namespace zenivo {

class FovSubjectDistanceCalculator : public CameraCalculator {
 public:
  explicit FovSubjectDistanceCalculator(const CalculatorEnvironment& environment);

  /// Takes the inputs from the settings and sensor and fixed lens from the current
  /// camera: to be called whenever the calculator is shown.
  void load();
  void save() const;

  const FovSubjectDistance& model() const { return model_; }

  /// A fixed lens cannot be changed.
  EditResult setLens(const LensInput& lens);
  /// Metres.
  void setObjectSize(float width, float height);
  void setIsPortrait(bool isPortrait) { model_.setIsPortrait(isPortrait); }

  /// The least distance.
  std::vector<ResultRow> results() const;

 private:
  FovSubjectDistance model_;
};

}  // namespace zenivo
