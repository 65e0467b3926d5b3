// Distances on the Earth.

#pragma once

#include "engine/Angles.h"

namespace zenivo {

/// Kilometres between two points given in degrees, on a sphere of the mean
/// radius: within 0.6 % of the ellipsoid's distance.
inline double greatCircleKilometres(double latitude1, double longitude1, double latitude2,
                                    double longitude2) {
  constexpr double kMeanRadius = 6371.0088;  // of WGS84, (2a + b)/3
  return kMeanRadius * angularDistance(longitude1, latitude1, longitude2, latitude2);
}

}  // namespace zenivo
