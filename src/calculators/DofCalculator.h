// The depth of field calculator, forward and inverse.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/InverseCalculator.h"
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

/// How depth of field is turned round: the inputs drive which results (see InverseCalculator).
struct DofInverse {
  using Model = Dof;
  using Variable = DofField;
  using Field = DofField;

  static constexpr Variable kFirstVariable = DofField::focalLength;
  static constexpr Variable kLastVariable = DofField::subjectDistance;
  static constexpr Field kLastField = DofField::totalDof;
  /// The hyperfocal distance does not depend on the subject's.
  static constexpr Field firstField(Variable variable) {
    return variable == DofField::subjectDistance ? DofField::nearLimit : DofField::hyperfocal;
  }

  static std::vector<std::string> freeVariableNames();
  static std::pair<Variable, Field> load(const UserDefaults& defaults, Field active);
  static void save(UserDefaults& defaults, Variable variable, Field active);
  static EditResult fixed(const Dof& model, Variable variable);
  static float value(const Dof& model, Field field);
  /// A far limit below 0 means infinity, which focus at the hyperfocal distance reaches; no
  /// depth below 0 is reached by any one value.
  static void setValue(Dof& model, Field field, float metres);
  static float solve(const Dof& model, Variable variable, Field field);
  static void setVariable(Dof& model, Variable variable, float value);
  static Refusal noResult(Variable variable);
};

using DofInverseCalculator = InverseCalculator<DofCalculator, DofInverse>;

}  // namespace zenivo
