// Scenes for answers.

#pragma once

#include "answers/common/Scene.h"
#include "support/Times.h"

namespace zenivo {

inline Scene sceneAt(double latitude, double longitude, const std::string& zone) {
  return {.location = ZVLocation(Coordinate{latitude, longitude}),
          .placeName = {},
          .zone = zoneNamed(zone),
          .zoneOrigin = {}};
}

}  // namespace zenivo
