// Scenes for answers.

#pragma once

#include "answers/common/Scene.h"
#include "support/Times.h"

namespace zenivo {

inline Scene sceneAt(double latitude, double longitude, const std::string& zone) {
  Scene scene;
  scene.location = ZVLocation(Coordinate{latitude, longitude});
  scene.zone = zoneNamed(zone);
  return scene;
}

}  // namespace zenivo
