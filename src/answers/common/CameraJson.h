// Cameras as JSON.

#pragma once

#include "answers/common/Moments.h"
#include "calculators/camera/AbstractCamera.h"

namespace zenivo {

/// {"name", "sensorWidth", "sensorHeight", "megapixels", "film", "cropFactor", "coc",
/// "focalLength", "aperture"}: lengths in millimetres, null for what the camera has not.
Json cameraJson(const AbstractCamera& camera);

}  // namespace zenivo
