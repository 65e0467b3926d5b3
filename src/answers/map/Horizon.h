// How far one sees to the horizon of the sea.

#pragma once

#include <optional>

#include "answers/map/MapJson.h"

namespace zenivo {

/// Of a photographer who stands upright.
inline constexpr double kEyeHeight = 1.6;  // metres

struct HorizonQuestion {
  ZVLocation place;
  double height = 0;                   ///< of the photographer above the ground, metres
  std::optional<double> azimuth = {};  ///< degrees: where its point is asked for
};

/// What is not known, for want of an altitude or of an azimuth, is nullopt.
struct HorizonReport {
  std::optional<double> height;    ///< of the eye above the sea, metres
  std::optional<double> distance;  ///< metres, refraction included
  std::optional<double> dip;       ///< of the horizon below the level, degrees
  std::optional<ZVLocation> point;
};

HorizonReport answer(const HorizonQuestion& question);
Json json(const HorizonReport& report);

}  // namespace zenivo
