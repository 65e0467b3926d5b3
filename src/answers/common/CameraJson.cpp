#include "answers/common/CameraJson.h"

#include "answers/common/Numbers.h"

namespace zenivo {
namespace {

/// The number, null for 0, which stands for none.
Json numberOrNull(float value) {
  return value > 0 ? numberJson(value) : Json(nullptr);
}

}  // namespace

Json cameraJson(const AbstractCamera& camera) {
  return {{"name", camera.modelString()},
          {"sensorWidth", numberJson(camera.sensorSize.width)},
          {"sensorHeight", numberJson(camera.sensorSize.height)},
          {"megapixels", numberOrNull(camera.megapixels)},
          {"film", !camera.isDigital},
          {"cropFactor", numberJson(camera.cropFactor)},
          {"coc", numberJson(camera.coc)},
          {"focalLength", numberOrNull(camera.fixedFocalLength)},
          {"aperture", numberOrNull(camera.fixedAperture)}};
}

}  // namespace zenivo
