// Cameras as they are written out.

#pragma once

#include <string>

#include "calculators/camera/AbstractCamera.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// "35.9 x 23.9 mm"
std::string sensorText(const SensorSize& size);
/// "24.2", or "film".
std::string megapixelsText(const AbstractCamera& camera);
/// "4.25 mm f/1.8" of what is fixed; empty when nothing is.
std::string fixedLensText(const AbstractCamera& camera);

/// All that there is to tell of a camera, in lines.
std::string cameraText(const AbstractCamera& camera, bool isChosen, const Terminal& terminal);

}  // namespace zenivo::cli
