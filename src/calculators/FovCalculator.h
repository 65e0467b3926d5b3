// The field of view calculator, forward and inverse, and the distance of an object that fits.

#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "calculators/CameraCalculator.h"
#include "calculators/InverseCalculator.h"
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

/// How field of view is turned round (see InverseCalculator).
struct FovInverse {
  using Model = Fov;
  using Variable = FovFreeVariable;
  using Field = FovField;

  static constexpr Variable kFirstVariable = FovFreeVariable::focalLength;
  static constexpr Variable kLastVariable = FovFreeVariable::subjectDistance;
  static constexpr Field kLastField = FovField::diagonalFov;
  /// No angle depends on the distance.
  static constexpr Field firstField(Variable variable) {
    return variable == FovFreeVariable::subjectDistance ? FovField::horizontalFov
                                                        : FovField::horizontalAov;
  }

  static std::vector<std::string> freeVariableNames();
  static std::pair<Variable, Field> load(const UserDefaults& defaults, Field active);
  static void save(UserDefaults& defaults, Variable variable, Field active);
  static EditResult fixed(const Fov& model, Variable variable);
  static float value(const Fov& model, Field field);
  static void setValue(Fov& model, Field field, float value);
  static float solve(const Fov& model, Variable variable, Field field);
  static void setVariable(Fov& model, Variable variable, float value);
  static Refusal noResult(Variable variable);
};

using FovInverseCalculator = InverseCalculator<FovCalculator, FovInverse>;

/// The distance from which an object fits into the frame.
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

 private:
  FovSubjectDistance model_;
};

}  // namespace zenivo
