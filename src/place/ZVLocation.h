// Where something is on the Earth, as a position sensor, a list of places or the user tells
// it.

#pragma once

#include "engine/PtPosition.h"
#include "place/Coordinate.h"

namespace zenivo {

struct ZVLocation {
  Coordinate coordinate = kInvalidCoordinate;
  double altitude = 0;           ///< metres above the ellipsoid; 0 when it is not known
  double verticalAccuracy = -1;  ///< of the altitude, metres; negative when it is not known

  ZVLocation() = default;
  /// At an altitude that is not known.
  explicit ZVLocation(const Coordinate& theCoordinate) : coordinate(theCoordinate) {}
  ZVLocation(const Coordinate& theCoordinate, double theAltitude, double theAccuracy = 1)
      : coordinate(theCoordinate), altitude(theAltitude), verticalAccuracy(theAccuracy) {}
  /// That of an observer of the ephemeris, whose altitude is taken to be known.
  explicit ZVLocation(const PtPosition& position)
      : ZVLocation({position.latitude(), position.longitude()}, position.altitude()) {}

  bool isAltitudeKnown() const { return verticalAccuracy >= 0; }

  /// The place as the ephemeris sees it: on the ellipsoid while the altitude is not known.
  PtPosition getPtPosition() const {
    return {coordinate.latitude, coordinate.longitude, isAltitudeKnown() ? altitude : 0.0};
  }

  friend bool operator==(const ZVLocation&, const ZVLocation&) = default;
};

}  // namespace zenivo
