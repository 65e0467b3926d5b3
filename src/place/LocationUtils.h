// Distances, directions and texts of points on the map.

#pragma once

#include <optional>
#include <string>

#include "place/Coordinate.h"

namespace zenivo {

/// How coordinates are written, by the numbers that settings keep.
enum class CoordinateSystem { decimalDegrees = 0, degreesMinutes = 1, degreesMinutesSeconds = 2 };

class LocationUtils {
 public:
  /// Length of the great circle between two points, kilometres, on a sphere of
  /// 6378.137 km: 0 for equal points, 20038 km for opposite ones.  By the law of
  /// cosines, and so without meaning below 0.1 m.
  static double greatCircleDistanceWithSource(const Coordinate& source,
                                              const Coordinate& destination);

  /// The point `range` metres away along a bearing (degrees) on WGS84.
  /// Error: 1 mm beyond the rounding of the arguments.
  /// Special cases: kInvalidCoordinate for what is no number, and from a latitude beyond 90.
  static Coordinate calculateDerivedPositionFromSource(const Coordinate& source, float range,
                                                       float andBearing);

  /// The bearing on a sphere in which a great circle sets out, degrees, 0 up to 360.  Differs
  /// from that of the geodesic by up to 0.2 degree.
  static float initialBearingFrom(const Coordinate& source, const Coordinate& toDestination);

  /// Kilometres from an eye at a height (metres) to the horizon of the sea, refraction
  /// included; nullopt below it.
  /// Source: the square root of 2 R h 7/6, R = 6378.137 km.
  static std::optional<double> distanceToHorizon(double height);

  /// "N", "NE", … of a bearing in degrees; "--" for one that is not known (negative or no
  /// number).
  static std::string cardinalNameForBearing(double bearing);

  /// "41.385064° N, 2.500000° W", "41° 23.1′ N, …" or "41° 23′ 6.23″ N, …".
  static std::string latLonStringWithCoordinate(const Coordinate& coordinate,
                                                CoordinateSystem usingCoordSystem);
};

}  // namespace zenivo
