// Distances between points of the map.

#pragma once

#include "place/Coordinate.h"

namespace zenivo {

class LocationUtils {
 public:
  /// Length of the great circle between two points, kilometres, on a sphere of
  /// 6378.137 km: 0 for equal points, 20038 km for opposite ones.  By the law of
  /// cosines, and so without meaning below 0.1 m.
  static double greatCircleDistanceWithSource(const Coordinate& source,
                                              const Coordinate& destination);
};

}  // namespace zenivo
