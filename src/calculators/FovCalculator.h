// The field of view calculator, forward and inverse.

#pragma once

#include <cstdint>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/Fov.h"

namespace zenivo {

/// Results of the calculator by their numbers in the settings.
enum class FovField {
  horizontalAov = 3,
  verticalAov = 4,
  diagonalAov = 5,
  horizontalFov = 6,
  verticalFov = 7,
  diagonalFov = 8,
};

/// What the inverse calculator solves for, by its number in the settings.
enum class FovFreeVariable { focalLength = 0, subjectDistance = 1 };

/// Angle and field of view from lens and distance.  Every edit computes the results.
class FovCalculator : public CameraCalculator {
 public:
  explicit FovCalculator(const CalculatorEnvironment& environment);
  virtual ~FovCalculator() = default;

  /// Takes the inputs from the settings and sensor and fixed lens from the current
  /// camera: to be called whenever the calculator is shown.
  virtual void load();
  virtual void save() const;

  const Fov& model() const { return model_; }

  /// A number that the one who shows the calculator keeps with it.
  std::int64_t selectedPage() const { return selectedPage_; }
  void setSelectedPage(std::int64_t page) { selectedPage_ = page; }

  // Edits.  A fixed lens cannot be changed.
  EditResult setLens(const LensInput& lens);
  EditResult setSubjectDistance(float metres);
  EditResult setIsPortrait(bool isPortrait);

  /// The three angles and the three lengths.
  std::vector<ResultRow> results() const;

 protected:
  template <class Change>
  EditResult edit(Change change) {
    return editModel(model_, change, [this](Fov& edited) { return solve(edited); });
  }

  /// Brings an edited model to its results; what it refuses is not taken over.
  virtual EditResult solve(Fov& edited) const;

 private:
  Fov model_;
  std::int64_t selectedPage_ = 0;
};

/// The calculator turned round: one result is given and drives one input.
class FovInverseCalculator : public FovCalculator {
 public:
  using FovCalculator::FovCalculator;

  void load() override;
  void save() const override;

  FovFreeVariable freeVariable() const { return freeVariable_; }
  /// Where the given result cannot drive the new free variable, the first that can
  /// takes its place.
  void setFreeVariable(FovFreeVariable variable);

  /// The localised names of the free variables.
  static std::vector<std::string> freeVariableNames();

  /// The results that can drive the free variable: no angle depends on the distance.
  std::vector<FovField> offeredFields() const;
  /// The result that is given.
  FovField activeField() const { return activeField_; }
  /// Nothing happens when the field is not offered.
  void setActiveField(FovField field);
  /// False while the camera fixes the free variable.
  bool isActiveFieldEnabled() const;

  /// Gives the active field a value, in degrees or metres, and solves for the free
  /// variable.
  EditResult setActiveFieldValue(float value);
  float activeFieldValue() const;

 protected:
  EditResult solve(Fov& edited) const override;

 private:
  FovFreeVariable freeVariable_ = FovFreeVariable::focalLength;
  FovField activeField_ = FovField::horizontalAov;
};

}  // namespace zenivo
