// What two pins are to each other, and what stands over one as seen from the other.

#pragma once

#include <optional>

#include "place/Coordinate.h"

namespace zenivo {

/// The way from a source to a destination.
struct GeodeticCurve {
  /// Azimuths of points that are the same.
  static constexpr double kNoAzimuth = -1;

  double startAzimuth = kNoAzimuth;  ///< at the source towards the destination, degrees 0 to 360
  double endAzimuth = kNoAzimuth;    ///< at the destination towards the source
  double distance = 0;               ///< as the crow flies up or down, metres
  double apparentElevation = 0;      ///< of the destination, lifted by refraction, degrees
};

/// Where a line of sight passes over a pin.
struct HeightOverTerrain {
  double height = 0;            ///< above the ground there, metres; negative below it
  double distanceToObject = 0;  ///< along the line, metres
};

class GeodeticCalculator {
 public:
  /// Distance and bearing on the ellipsoid raised to the mean of the two altitudes (metres).
  /// Error: surface distance 1 mm, bearing 5e-5 degree; elevation 1e-5 degree from 1 km on,
  /// of the geometry alone: terrestrial refraction is taken as a seventh of the curvature,
  /// and in the hour of sunset differs from it by as much.
  /// Special cases: equal points have kNoAzimuth, elevation 0, and the difference of altitude
  /// as their distance.  What is no number stays none.
  /// Source: Karney (2013) for the geodesic; rectangular coordinates for the elevation.
  static GeodeticCurve geodeticCurveBetweenSource(const Coordinate& source, double sourceAltitude,
                                                  const Coordinate& destination,
                                                  double destinationAltitude);

  /// Metres from the Earth's centre to the ellipsoid at a geodetic latitude (degrees).
  static double calculateEarthRadiusForLatitude(double latitude);

  /// The straight line that leaves the red pin at an elevation (degrees), where it passes over
  /// the black one.  Distance, radius and altitudes in metres.
  /// Error: that of a sphere, 1e-9 of the height.
  /// Special cases: nullopt where the line never comes there, since the Earth curves away
  /// faster than it sinks: from elevation plus distance (as an angle) of 90 degrees on.
  static std::optional<HeightOverTerrain> calculateHeightAboveTerrainWithPin2PinDistance(
      double pin2PinDistance, double earthRadius, double sunMoonElevation, double redPinAltitude,
      double blackPinAltitude);

  /// The elevation (degrees) at which the red pin sees a point `apparentHeight` metres above
  /// the ground of the black one: the operation above, the other way round.
  static double calculateElevationAboveTerrainWithPin2PinDistance(double pin2PinDistance,
                                                                  double earthRadius,
                                                                  double apparentHeight,
                                                                  double redPinAltitude,
                                                                  double blackPinAltitude);
};

}  // namespace zenivo
