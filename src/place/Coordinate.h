// A point on the map.

#pragma once

#include <cmath>

namespace zenivo {

/// Geodetic position in degrees, north and east positive.
struct Coordinate {
  double latitude = 0;
  double longitude = 0;

  friend bool operator==(const Coordinate&, const Coordinate&) = default;
};

/// Stands where there is no point.
inline constexpr Coordinate kInvalidCoordinate{-180.0, -180.0};

/// Latitude within 90 and longitude within 180 degrees of 0, bounds included;
/// false for not-a-number.
inline bool isValid(const Coordinate& coordinate) {
  return std::abs(coordinate.latitude) <= 90.0 && std::abs(coordinate.longitude) <= 180.0;
}

}  // namespace zenivo
