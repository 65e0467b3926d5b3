#include "calculators/models/Refusal.h"

#include "calculators/camera/Texts.h"

namespace zenivo {

std::string Refusal::title() const {
  return calculatorText(titleKey);
}

std::string Refusal::message() const {
  return calculatorText(messageKey);
}

Refusal cannotChangeFocalLength() {
  return {"calculator_cant_change_value", "calculator_cant_change_focal_length"};
}

Refusal cannotChangeAperture() {
  return {"calculator_cant_change_value", "calculator_cant_change_aperture"};
}

Refusal noCircleOfConfusion() {
  return {"calculator_no_result", "coc_error"};
}

Refusal noFocalLength() {
  return {"calculator_no_result", "dof_inverse_no_focal_length"};
}

Refusal noAperture() {
  return {"calculator_no_result", "dof_inverse_no_aperture"};
}

Refusal noSubjectDistance() {
  return {"calculator_no_result", "dof_inverse_no_subject_distance"};
}

Refusal noShutterSpeed() {
  return {"calculator_no_result", "exposure_no_shutter_speed"};
}

Refusal noIso() {
  return {"calculator_no_result", "exposure_no_iso"};
}

}  // namespace zenivo
