// Where the Sun, the Moon and the Milky Way stand at one moment.

#pragma once

#include "answers/common/Scene.h"
#include "engine/MoonPhase.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtPolar.h"
#include "foundation/Date.h"

namespace zenivo {

struct SkyQuestion {
  Scene scene;
  Date moment;
};

struct SkyReport {
  struct Body {
    PtPolar position;
    double angularDiameter = 0;  ///< degrees
    double shadowRatio = 0;      ///< length of a shadow over its height; negative for none
  };

  SkyQuestion question;
  double mjd = 0;
  double deltaT = 0;  ///< seconds
  Body sun;
  double elevationForLight = 0;  ///< the Sun's by which the band of light is told, degrees
  Body moon;
  MoonPhase phase;
  double moonAge = 0;  ///< days
  PtMilkyWayPosition milkyWay;
};

SkyReport answer(const SkyQuestion& question);
Json json(const SkyReport& report);

}  // namespace zenivo
