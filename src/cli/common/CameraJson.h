// Cameras as JSON.

#pragma once

#include "calculators/camera/AbstractCamera.h"
#include "cli/output/Moments.h"

namespace zenivo::cli {

/// {"name", "sensorWidth", "sensorHeight", "megapixels", "film", "cropFactor", "coc",
/// "focalLength", "aperture"}: lengths in millimetres, null for what the camera has not.
Json cameraJson(const AbstractCamera& camera);

}  // namespace zenivo::cli
