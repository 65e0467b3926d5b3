#include <algorithm>

#include "app/settings/SettingsKeys.h"
#include "calculators/FovCalculator.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

/// How the model reads one result and solves for it.
struct FieldAccess {
  float (Fov::*read)() const;
  float (Fov::*focalLength)(float) const;
  float (Fov::*subjectDistance)(float) const;
};

/// In the order of FovField.
constexpr FieldAccess kFields[] = {
    {&Fov::horizontalAov, &Fov::calculateFocalLengthForHorizontalAoV, nullptr},
    {&Fov::verticalAov, &Fov::calculateFocalLengthForVerticalAoV, nullptr},
    {&Fov::diagonalAov, &Fov::calculateFocalLengthForDiagonalAoV, nullptr},
    {&Fov::horizontalFov, &Fov::calculateFocalLengthForHorizontalFoV,
     &Fov::calculateSubjectDistanceForHorizontalFoV},
    {&Fov::verticalFov, &Fov::calculateFocalLengthForVerticalFoV,
     &Fov::calculateSubjectDistanceForVerticalFoV},
    {&Fov::diagonalFov, &Fov::calculateFocalLengthForDiagonalFoV,
     &Fov::calculateSubjectDistanceForDiagonalFoV},
};

const FieldAccess& accessTo(FovField field) {
  return kFields[static_cast<std::size_t>(field) -
                 static_cast<std::size_t>(FovField::horizontalAov)];
}

void setResult(Fov& model, FovField field, float value) {
  if (field == FovField::horizontalAov) model.setHorizontalAov(value);
  if (field == FovField::verticalAov) model.setVerticalAov(value);
  if (field == FovField::diagonalAov) model.setDiagonalAov(value);
  if (field == FovField::horizontalFov) model.setHorizontalFov(value);
  if (field == FovField::verticalFov) model.setVerticalFov(value);
  if (field == FovField::diagonalFov) model.setDiagonalFov(value);
}

}  // namespace

void FovInverseCalculator::load() {
  FovCalculator::load();
  setFreeVariable(defaults().integerForKey(settings::fov_freeVariable) == 0
                      ? FovFreeVariable::focalLength
                      : FovFreeVariable::subjectDistance);
  const std::int64_t stored = defaults().integerForKey(settings::fov_lastInputVariable);
  if (stored >= 3 && stored <= 8) setActiveField(static_cast<FovField>(stored));
}

void FovInverseCalculator::save() const {
  defaults().setInteger(static_cast<int>(freeVariable_), settings::fov_freeVariable);
  defaults().setInteger(static_cast<int>(activeField_), settings::fov_lastInputVariable);
  FovCalculator::save();
}

std::vector<std::string> FovInverseCalculator::freeVariableNames() {
  return {calculatorText("focal_length"), calculatorText("subject_distance")};
}

void FovInverseCalculator::setFreeVariable(FovFreeVariable variable) {
  freeVariable_ = variable;
  activeField_ = std::max(activeField_, offeredFields().front());
}

std::vector<FovField> FovInverseCalculator::offeredFields() const {
  using enum FovField;
  if (freeVariable_ == FovFreeVariable::subjectDistance) {
    return {horizontalFov, verticalFov, diagonalFov};
  }
  return {horizontalAov, verticalAov, diagonalAov, horizontalFov, verticalFov, diagonalFov};
}

void FovInverseCalculator::setActiveField(FovField field) {
  if (field >= offeredFields().front() && field <= FovField::diagonalFov) activeField_ = field;
}

bool FovInverseCalculator::isActiveFieldEnabled() const {
  return freeVariable_ != FovFreeVariable::focalLength || !model().isFixedFocalLength();
}

EditResult FovInverseCalculator::setActiveFieldValue(float value) {
  if (!isActiveFieldEnabled()) return cannotChangeFocalLength();
  return edit([this, value](Fov& model) { setResult(model, activeField_, value); });
}

float FovInverseCalculator::activeFieldValue() const {
  return (model().*accessTo(activeField_).read)();
}

EditResult FovInverseCalculator::solve(Fov& edited) const {
  // With a focal length that the camera fixes, nothing can follow the given result.
  if (isActiveFieldEnabled()) {
    const FieldAccess& access = accessTo(activeField_);
    const float wanted = (edited.*access.read)();
    const bool isFocalLength = freeVariable_ == FovFreeVariable::focalLength;
    const float result =
        (edited.*(isFocalLength ? access.focalLength : access.subjectDistance))(wanted);
    if (isRefusedResult(result)) return isFocalLength ? noFocalLength() : noSubjectDistance();
    isFocalLength ? edited.setFocalLength(result) : edited.setSubjectDistance(result);
  }
  edited.calculateFOVValues();
  return std::nullopt;
}

}  // namespace zenivo
