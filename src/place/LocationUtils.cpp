#include "place/LocationUtils.h"

#include <algorithm>
#include <cmath>

#include "engine/Angles.h"

namespace zenivo {

double LocationUtils::greatCircleDistanceWithSource(const Coordinate& source,
                                                    const Coordinate& destination) {
  constexpr double kEarthRadius = 6378.137;  // kilometres
  if (source == destination) return 0;
  const double from = source.latitude * kDegree;
  const double to = destination.latitude * kDegree;
  const double cosine = std::sin(from) * std::sin(to) +
                        std::cos(from) * std::cos(to) *
                            std::cos((destination.longitude - source.longitude) * kDegree);
  // Rounding lifts the cosine of points close by or opposite a hair beyond 1.
  return std::acos(std::clamp(cosine, -1.0, 1.0)) * kEarthRadius;
}

}  // namespace zenivo
