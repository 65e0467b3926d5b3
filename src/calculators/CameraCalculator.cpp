#include "calculators/CameraCalculator.h"

#include "calculators/camera/Texts.h"

namespace zenivo {

void CameraCalculator::loadCamera() {
  camera_ = AbstractCamera::currentCamera(environment_.defaults, environment_.cameras);
}

LensInput CameraCalculator::loadLens(const LensKeys& keys) const {
  if (isFocalLengthFixed()) return {camera_->fixedFocalLengthInMetres()};
  return lensFromSettings(defaults(), keys);
}

Aperture CameraCalculator::loadAperture(std::string_view key) const {
  return environment_.apertures.apertureForStop(isApertureFixed() ? camera_->fixedAperture
                                                                  : defaults().floatForKey(key));
}

std::vector<Aperture> CameraCalculator::stopsOfCamera() const {
  if (!isApertureFixed()) return environment_.apertures.stops();
  return {environment_.apertures.apertureForStop(camera_->fixedAperture)};
}

}  // namespace zenivo
