// The form for the circle of confusion of the advanced depth of field calculator.

#pragma once

#include <string_view>

#include "calculators/CameraCalculator.h"
#include "calculators/models/CocCalculator.h"
#include "calculators/models/Refusal.h"

namespace zenivo {

/// A length as typed into the form: feet and inches, or metres (then `feetOrMetres`
/// alone).  A field that is no number counts 0.
struct TypedLength {
  std::string_view feetOrMetres;
  std::string_view inches = {};

  float metres(UnitSystem units) const;
};

/// The circle of confusion while it is edited.
class CocForm {
 public:
  /// Starts from the settings and the current camera.
  explicit CocForm(const CalculatorEnvironment& environment);

  /// Its adjustedCoc is the value in force while it is derived.
  CocCalculator& model() { return model_; }

  void setPrintSize(const TypedLength& width, const TypedLength& height);
  void setViewingDistance(const TypedLength& distance);

  /// Stores the form.  Where the value is not derived, `typedCoc` is the user's, in
  /// millimetres with a decimal point; a text that is no number above 0 is refused and
  /// nothing is stored.
  EditResult done(std::string_view typedCoc = {});

 private:
  CalculatorEnvironment environment_;
  CocCalculator model_;
};

/// The stored circle of confusion in millimetres, for a camera whose own is `cameraCoc`.
CocCalculator storedCocCalculator(const UserDefaults& defaults, float cameraCoc);

}  // namespace zenivo
