#include "calculators/camera/CameraForm.h"

#include <fmt/format.h>

#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

bool isMissing(std::optional<float> value) {
  return !value || *value == 0;
}

std::string trimmed(const std::string& text) {
  constexpr const char* kBlanks = " \t\r\n\v\f";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::string CameraFormFault::message() const {
  return calculatorText(messageKey);
}

CameraForm::CameraForm(const CustomCameraRecord& camera)
    : camera_(camera),
      cocAutomatic_(isMissing(camera.coc)),
      fixedFocalLength_(!isMissing(camera.focalLength)),
      fixedAperture_(!isMissing(camera.aperture)) {
  deriveCoc();
}

void CameraForm::setSensorSize(const SensorSize& size) {
  camera_.sensorSize = size;
  deriveCoc();
}

void CameraForm::setIsFilm(bool isFilm) {
  camera_.isFilm = isFilm;
  if (isFilm) camera_.megapixels.reset();
}

void CameraForm::setCocAutomatic(bool automatic) {
  cocAutomatic_ = automatic;
  deriveCoc();
}

void CameraForm::setHasFixedFocalLength(bool fixed) {
  fixedFocalLength_ = fixed;
  if (!fixed) camera_.focalLength.reset();
}

void CameraForm::setHasFixedAperture(bool fixed) {
  fixedAperture_ = fixed;
  if (!fixed) camera_.aperture.reset();
}

bool CameraForm::hasSensor() const {
  return camera_.sensorSize.width > 0 && camera_.sensorSize.height > 0;
}

void CameraForm::deriveCoc() {
  if (!cocAutomatic_) return;
  camera_.coc.reset();
  if (hasSensor()) camera_.coc = camera_.sensorSize.circleOfConfusion();
}

std::string CameraForm::cropFactorText() const {
  return hasSensor() ? numberWithExactly(1, camera_.sensorSize.cropFactor()) : kNoValueText;
}

std::string CameraForm::cocText() const {
  return fmt::format("{} mm", camera_.coc ? numberWithExactly(3, *camera_.coc) : kNoValueText);
}

std::optional<CameraFormFault> CameraForm::validate(const CameraStore& store) {
  using enum CameraFormField;
  camera_.model = trimmed(camera_.model);
  if (camera_.model.empty()) return CameraFormFault{name, "camera_validate_no_name"};
  if (store.existsCameraWithModel(camera_))
    return CameraFormFault{name, "camera_validate_duplicate"};
  if (isMissing(camera_.sensorSize.width)) {
    return CameraFormFault{sensorWidth, "camera_validate_no_sensor_width"};
  }
  if (isMissing(camera_.sensorSize.height)) {
    return CameraFormFault{sensorHeight, "camera_validate_no_sensor_height"};
  }
  if (!camera_.isFilm && isMissing(camera_.megapixels)) {
    return CameraFormFault{megapixels, "camera_validate_no_mpx"};
  }
  if (!cocAutomatic_ && isMissing(camera_.coc)) {
    return CameraFormFault{coc, "camera_validate_no_coc"};
  }
  if (cocAutomatic_) camera_.coc.reset();
  if (fixedFocalLength_ && isMissing(camera_.focalLength)) {
    return CameraFormFault{focalLength, "camera_validate_no_focal_length"};
  }
  return std::nullopt;
}

}  // namespace zenivo
