// How field of view is turned round.

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

}  // namespace

std::vector<std::string> FovInverse::freeVariableNames() {
  return {calculatorText("focal_length"), calculatorText("subject_distance")};
}

std::pair<FovFreeVariable, FovField> FovInverse::load(const UserDefaults& defaults, Field active) {
  const std::int64_t stored = defaults.integerForKey(settings::fov_lastInputVariable);
  const bool isField =
      stored >= static_cast<int>(FovField::horizontalAov) && stored <= static_cast<int>(kLastField);
  return {defaults.integerForKey(settings::fov_freeVariable) == 0
              ? FovFreeVariable::focalLength
              : FovFreeVariable::subjectDistance,
          isField ? static_cast<FovField>(stored) : active};
}

void FovInverse::save(UserDefaults& defaults, Variable variable, Field active) {
  defaults.setInteger(static_cast<int>(variable), settings::fov_freeVariable);
  defaults.setInteger(static_cast<int>(active), settings::fov_lastInputVariable);
}

EditResult FovInverse::fixed(const Fov& model, Variable variable) {
  const bool isFixed = variable == FovFreeVariable::focalLength && model.isFixedFocalLength();
  return isFixed ? EditResult(cannotChangeFocalLength()) : std::nullopt;
}

float FovInverse::value(const Fov& model, Field field) {
  return (model.*accessTo(field).read)();
}

void FovInverse::setValue(Fov& model, Field field, float value) {
  if (field == FovField::horizontalAov) model.setHorizontalAov(value);
  if (field == FovField::verticalAov) model.setVerticalAov(value);
  if (field == FovField::diagonalAov) model.setDiagonalAov(value);
  if (field == FovField::horizontalFov) model.setHorizontalFov(value);
  if (field == FovField::verticalFov) model.setVerticalFov(value);
  if (field == FovField::diagonalFov) model.setDiagonalFov(value);
}

float FovInverse::solve(const Fov& model, Variable variable, Field field) {
  const FieldAccess& access = accessTo(field);
  const bool isFocalLength = variable == FovFreeVariable::focalLength;
  return (model.*
          (isFocalLength ? access.focalLength : access.subjectDistance))(value(model, field));
}

void FovInverse::setVariable(Fov& model, Variable variable, float value) {
  if (variable == FovFreeVariable::focalLength) model.setFocalLength(value);
  if (variable == FovFreeVariable::subjectDistance) model.setSubjectDistance(value);
}

Refusal FovInverse::noResult(Variable variable) {
  return variable == FovFreeVariable::focalLength ? noFocalLength() : noSubjectDistance();
}

}  // namespace zenivo
