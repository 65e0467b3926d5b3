// A place as a position sensor reports it.

#pragma once

#include "engine/PtPosition.h"
#include "place/Coordinate.h"
#include "place/PinLocation.h"

namespace zenivo {

struct ZVLocation {
  Coordinate coordinate = kInvalidCoordinate;
  double altitude = 0;           ///< metres above the ellipsoid
  double verticalAccuracy = -1;  ///< of the altitude, metres; negative when it is not known

  /// The place as the ephemeris sees it: on the ellipsoid while the altitude is not
  /// known.
  PtPosition getPtPosition() const {
    return {coordinate.latitude, coordinate.longitude, verticalAccuracy < 0 ? 0.0 : altitude};
  }

  friend bool operator==(const ZVLocation&, const ZVLocation&) = default;
};

/// The place of a pin; an altitude of unknown accuracy counts as right to a metre.
inline ZVLocation locationOfPin(const PinLocation& pin) {
  if (!pin.isAltitudeValid()) return {.coordinate = pin.coordinate};
  return {.coordinate = pin.coordinate,
          .altitude = static_cast<double>(pin.totalAltitude()),
          .verticalAccuracy = pin.altitudeAccuracy > 0 ? pin.altitudeAccuracy : 1.0};
}

}  // namespace zenivo
