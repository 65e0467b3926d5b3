// The calculator that matches a second camera's lens to the first one's.

#pragma once

#include <optional>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/EquivalentFocalLength.h"

namespace zenivo {

/// Camera 1 is the current camera; camera 2 has a choice of its own, kept under
/// kSecondCameraKeys.  Every edit computes the match.
class EquivalentFocalLengthCalculator : public CameraCalculator {
 public:
  explicit EquivalentFocalLengthCalculator(const CalculatorEnvironment& environment);

  /// Takes the inputs from the settings and sensors and fixed values from both
  /// cameras: to be called whenever the calculator is shown.
  void load();
  void save() const;

  /// Nullopt when the chosen one has gone.
  const std::optional<AbstractCamera>& camera2() const { return camera2_; }

  const EquivalentFocalLength& model() const { return model_; }

  // Edits.  What camera 1 fixes cannot be changed.
  EditResult setLens(const LensInput& lens);
  EditResult setAperture(const Aperture& aperture);
  void setSubjectDistance(float metres);

  /// Why camera 2 has no aperture with the same depth of field; nullopt where it has
  /// one or where its aperture is fixed.
  EditResult apertureRefusal() const;

 private:
  EquivalentFocalLength model_;
  std::optional<AbstractCamera> camera2_;
};

}  // namespace zenivo
