// How depth of field is turned round.

#include "app/settings/SettingsKeys.h"
#include "calculators/DofCalculator.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

using Operation = float (Dof::*)(float) const;

/// The operations for each free variable, by the given result from hyperfocal on.  None
/// asks a distance of the hyperfocal distance, which does not depend on it.
constexpr Operation kFocalLengthFor[] = {
    &Dof::calculateFocalLengthForHyperfocal, &Dof::calculateFocalLengthForHyperfocalNearLimit,
    &Dof::calculateFocalLengthForDOFNearLimit, &Dof::calculateFocalLengthForDOFFarLimit,
    &Dof::calculateFocalLengthForDOF};
constexpr Operation kApertureFor[] = {
    &Dof::calculateApertureForHyperfocal, &Dof::calculateApertureForHyperfocalNearLimit,
    &Dof::calculateApertureForDOFNearLimit, &Dof::calculateApertureForDOFFarLimit,
    &Dof::calculateApertureForDOF};
constexpr Operation kSubjectDistanceFor[] = {
    nullptr, nullptr, &Dof::calculateSubjectDistanceForDOFNearLimit,
    &Dof::calculateSubjectDistanceForDOFFarLimit, &Dof::calculateSubjectDistanceForDOF};

Operation operationFor(DofField variable, DofField field) {
  const auto column =
      static_cast<std::size_t>(field) - static_cast<std::size_t>(DofField::hyperfocal);
  if (variable == DofField::focalLength) return kFocalLengthFor[column];
  if (variable == DofField::aperture) return kApertureFor[column];
  return kSubjectDistanceFor[column];
}

/// The value of the free variable that moves the far limit just to infinity, where
/// the far limit's own operations have no number to work with.
float solveForInfinity(const Dof& model, DofField variable) {
  if (variable == DofField::focalLength) {
    return model.calculateFocalLengthForHyperfocal(model.subjectDistance());
  }
  if (variable == DofField::aperture) {
    return model.calculateApertureForHyperfocal(model.subjectDistance());
  }
  Dof computed = model;
  computed.calculateDOFValues();
  return computed.hyperfocal();
}

}  // namespace

std::vector<std::string> DofInverse::freeVariableNames() {
  return {calculatorText("focal_length"), calculatorText("aperture"),
          calculatorText("subject_distance")};
}

std::pair<DofField, DofField> DofInverse::load(const UserDefaults& defaults, Field active) {
  const std::int64_t stored = defaults.integerForKey(settings::dof_freeVariable);
  return {stored == 1 || stored == 2 ? static_cast<DofField>(stored) : kFirstVariable, active};
}

void DofInverse::save(UserDefaults& defaults, Variable variable, Field /*active*/) {
  defaults.setInteger(static_cast<int>(variable), settings::dof_freeVariable);
}

EditResult DofInverse::fixed(const Dof& model, Variable variable) {
  if (variable == DofField::focalLength && model.isFixedFocalLength()) {
    return cannotChangeFocalLength();
  }
  if (variable == DofField::aperture && model.isFixedAperture()) return cannotChangeAperture();
  return std::nullopt;
}

float DofInverse::value(const Dof& model, Field field) {
  switch (field) {
    case DofField::focalLength:
      return model.focalLength();
    case DofField::aperture:
      return static_cast<float>(model.aperture().value);
    case DofField::subjectDistance:
      return model.subjectDistance();
    case DofField::hyperfocal:
      return model.hyperfocal();
    case DofField::hyperfocalNearLimit:
      return model.hyperfocalNearLimit();
    case DofField::nearLimit:
      return model.dofNearLimit();
    case DofField::farLimit:
      return model.dofFarLimit();
    case DofField::totalDof:
      return model.inverseDepthOfField();
  }
  return 0;
}

void DofInverse::setValue(Dof& model, Field field, float metres) {
  if (field == DofField::hyperfocal) model.setHyperfocal(metres);
  if (field == DofField::hyperfocalNearLimit) model.setHyperfocal(2 * metres);
  if (field == DofField::nearLimit) model.setDofNearLimit(metres);
  if (field == DofField::farLimit) model.setDofFarLimit(metres);
  if (field == DofField::totalDof) model.setInverseDepthOfField(metres);
}

void DofInverse::setVariable(Dof& model, Variable variable, float value) {
  if (variable == DofField::focalLength) model.setFocalLength(value);
  if (variable == DofField::aperture) model.setAperture({value, value});
  if (variable == DofField::subjectDistance) model.setSubjectDistance(value);
}

float DofInverse::solve(const Dof& model, Variable variable, Field field) {
  const float wanted = value(model, field);
  if (field == DofField::farLimit && wanted < 0) return solveForInfinity(model, variable);
  if (field == DofField::totalDof && wanted < 0) return wanted;
  return (model.*operationFor(variable, field))(wanted);
}

Refusal DofInverse::noResult(Variable variable) {
  if (variable == DofField::focalLength) return noFocalLength();
  return variable == DofField::aperture ? noAperture() : noSubjectDistance();
}

}  // namespace zenivo
