// The depth of field calculator, forward and inverse.

#pragma once

#include <cstdint>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/models/Dof.h"

namespace zenivo {

/// Inputs and results of the calculator by their numbers in the settings.
enum class DofField {
  focalLength = 0,
  aperture = 1,
  subjectDistance = 2,
  hyperfocal = 3,
  hyperfocalNearLimit = 4,
  nearLimit = 5,
  farLimit = 6,
  totalDof = 7,
};

/// Whose circle of confusion the calculator takes.
enum class DofForm {
  basic,     ///< the camera's
  advanced,  ///< the one adjusted for print and viewer (see CocCalculator)
};

/// Depth of field from lens, aperture and distance.  Every edit computes the results.
class DofCalculator : public CameraCalculator {
 public:
  explicit DofCalculator(const CalculatorEnvironment& environment, DofForm form = DofForm::basic);
  virtual ~DofCalculator() = default;

  /// Takes the inputs from the settings and the fixed values from the current camera:
  /// to be called whenever the calculator is shown.
  virtual void load();
  virtual void save() const;

  const Dof& model() const { return model_; }

  /// A number that the one who shows the calculator keeps with it.
  std::int64_t selectedPage() const { return selectedPage_; }
  void setSelectedPage(std::int64_t page) { selectedPage_ = page; }

  // Edits.  What the camera fixes cannot be changed.
  EditResult setLens(const LensInput& lens);
  EditResult setAperture(const Aperture& aperture);
  EditResult setSubjectDistance(float metres);

  /// The results: hyperfocal distance and its near limit, both limits, the depth and
  /// its parts before and behind the subject with their share.
  std::vector<ResultRow> results() const;

 protected:
  template <class Change>
  EditResult edit(Change change) {
    return editModel(model_, change, [this](Dof& edited) { return solve(edited); });
  }

  /// Brings an edited model to its results; what it refuses is not taken over.
  virtual EditResult solve(Dof& edited) const;

 private:
  float circleOfConfusionInUse() const;

  DofForm form_;
  Dof model_;
  std::int64_t selectedPage_ = 0;
};

/// The calculator turned round: one result is given and drives one input.
class DofInverseCalculator : public DofCalculator {
 public:
  using DofCalculator::DofCalculator;

  void load() override;
  void save() const override;

  /// The input that is solved for: focalLength, aperture or subjectDistance.
  DofField freeVariable() const { return freeVariable_; }
  /// Where the given result cannot drive the new free variable, the first that can
  /// takes its place.
  void setFreeVariable(DofField variable);

  /// The localised names of the three free variables.
  static std::vector<std::string> freeVariableNames();

  /// The results that can drive the free variable.
  std::vector<DofField> offeredFields() const;
  /// The result that is given.
  DofField activeField() const { return activeField_; }
  /// Nothing happens when the field is not offered.
  void setActiveField(DofField field);
  /// False while the camera fixes the free variable.
  bool isActiveFieldEnabled() const;

  /// Gives the active field a value in metres and solves for the free variable.  A far
  /// limit below 0 means infinity, which focus at the hyperfocal distance reaches; no
  /// depth below 0 is reached by any one value.
  EditResult setActiveFieldValue(float metres);
  float activeFieldValue() const;

 protected:
  EditResult solve(Dof& edited) const override;

 private:
  EditResult refusalOfFixed() const;

  DofField freeVariable_ = DofField::focalLength;
  DofField activeField_ = DofField::hyperfocal;
};

}  // namespace zenivo
