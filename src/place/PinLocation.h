// A pin on the map: a point and its altitude.

#pragma once

#include <cstdint>

#include "place/Coordinate.h"

namespace zenivo {

/// The altitude of a pin of which none is known.
inline constexpr float kUnknownAltitude = -2147483648.0F;

/// The `altitudeAccuracy` of an altitude that the user typed.
inline constexpr std::int32_t kAltitudeSetManually = -1;

class PinLocation {
 public:
  PinLocation() = default;
  explicit PinLocation(const Coordinate& theCoordinate) : coordinate(theCoordinate) {}

  Coordinate coordinate;
  float altitude = kUnknownAltitude;  ///< of the ground, metres above the ellipsoid
  float altitudeOffset = 0;           ///< of the pin above the ground, metres
  std::int32_t altitudeAccuracy = 0;  ///< of the source, metres; 0 when not told

  bool isAltitudeValid() const;
  bool isAltitudeSetManually() const { return altitudeAccuracy == kAltitudeSetManually; }

  /// The pin's altitude, metres.  Only where isAltitudeValid.
  float totalAltitude() const { return altitude + altitudeOffset; }

  /// The altitude is not known any longer: the pin has left the place it was
  /// known for.
  void clearAltitude();

  friend bool operator==(const PinLocation&, const PinLocation&) = default;
};

}  // namespace zenivo
