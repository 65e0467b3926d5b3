#include <algorithm>

#include "app/settings/SettingsKeys.h"
#include "calculators/DofCalculator.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

float valueOf(const Dof& model, DofField field) {
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

void setResult(Dof& model, DofField field, float value) {
  if (field == DofField::hyperfocal) model.setHyperfocal(value);
  if (field == DofField::hyperfocalNearLimit) model.setHyperfocal(2 * value);
  if (field == DofField::nearLimit) model.setDofNearLimit(value);
  if (field == DofField::farLimit) model.setDofFarLimit(value);
  if (field == DofField::totalDof) model.setInverseDepthOfField(value);
}

void setInput(Dof& model, DofField variable, float value) {
  if (variable == DofField::focalLength) model.setFocalLength(value);
  if (variable == DofField::aperture) model.setAperture({value, value});
  if (variable == DofField::subjectDistance) model.setSubjectDistance(value);
}

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

float solveFor(const Dof& model, DofField variable, DofField field) {
  const float wanted = valueOf(model, field);
  if (field == DofField::farLimit && wanted < 0) return solveForInfinity(model, variable);
  if (field == DofField::totalDof && wanted < 0) return wanted;
  return (model.*operationFor(variable, field))(wanted);
}

Refusal noResultFor(DofField variable) {
  if (variable == DofField::focalLength) return noFocalLength();
  return variable == DofField::aperture ? noAperture() : noSubjectDistance();
}

}  // namespace

void DofInverseCalculator::load() {
  DofCalculator::load();
  const std::int64_t stored = defaults().integerForKey(settings::dof_freeVariable);
  setFreeVariable(stored == 1 || stored == 2 ? static_cast<DofField>(stored)
                                             : DofField::focalLength);
}

void DofInverseCalculator::save() const {
  defaults().setInteger(static_cast<int>(freeVariable_), settings::dof_freeVariable);
  DofCalculator::save();
}

std::vector<std::string> DofInverseCalculator::freeVariableNames() {
  return {calculatorText("focal_length"), calculatorText("aperture"),
          calculatorText("subject_distance")};
}

void DofInverseCalculator::setFreeVariable(DofField variable) {
  if (variable > DofField::subjectDistance) return;
  freeVariable_ = variable;
  if (activeField_ < offeredFields().front()) activeField_ = offeredFields().front();
}

std::vector<DofField> DofInverseCalculator::offeredFields() const {
  using enum DofField;
  if (freeVariable_ == subjectDistance) return {nearLimit, farLimit, totalDof};
  return {hyperfocal, hyperfocalNearLimit, nearLimit, farLimit, totalDof};
}

void DofInverseCalculator::setActiveField(DofField field) {
  if (field >= offeredFields().front() && field <= DofField::totalDof) activeField_ = field;
}

EditResult DofInverseCalculator::refusalOfFixed() const {
  if (freeVariable_ == DofField::focalLength && model().isFixedFocalLength()) {
    return cannotChangeFocalLength();
  }
  if (freeVariable_ == DofField::aperture && model().isFixedAperture()) {
    return cannotChangeAperture();
  }
  return std::nullopt;
}

bool DofInverseCalculator::isActiveFieldEnabled() const {
  return !refusalOfFixed();
}

EditResult DofInverseCalculator::setActiveFieldValue(float metres) {
  if (const EditResult refusal = refusalOfFixed()) return refusal;
  return edit([this, metres](Dof& model) { setResult(model, activeField_, metres); });
}

float DofInverseCalculator::activeFieldValue() const {
  return valueOf(model(), activeField_);
}

EditResult DofInverseCalculator::solve(Dof& edited) const {
  // With a free variable that the camera fixes, nothing can follow the given result.
  if (!refusalOfFixed()) {
    const float result = solveFor(edited, freeVariable_, activeField_);
    if (isRefusedResult(result)) return noResultFor(freeVariable_);
    setInput(edited, freeVariable_, result);
  }
  edited.calculateDOFValues();
  return std::nullopt;
}

}  // namespace zenivo
