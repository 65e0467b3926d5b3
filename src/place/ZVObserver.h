// The main pin: where the photographer stands.

#pragma once

#include <limits>
#include <optional>

#include "engine/PtPosition.h"
#include "foundation/PropertyList.h"
#include "place/PinLocation.h"
#include "place/ZVLocation.h"

namespace zenivo {

/// The `altitudeAtHorizon` of an observer without a horizon point.
inline constexpr float kNoAltitudeAtHorizon = std::numeric_limits<float>::min();

/// The observer, with the point of the visible horizon where he chose one.  Seen
/// from high above it the horizon lies lower, and bodies rise earlier.
class ZVObserver : public PinLocation {
 public:
  using PinLocation::PinLocation;
  /// A pin set there by hand.
  explicit ZVObserver(const ZVLocation& location);

  Coordinate horizonPosition = kInvalidCoordinate;
  float altitudeAtHorizon = kNoAltitudeAtHorizon;  ///< metres above the ellipsoid
  bool adjustForHeightAboveHorizon = false;

  bool isAltitudeAtHorizonValid() const;

  /// No horizon point, and no adjustment for one.
  void resetHorizon();

  /// The observer as the ephemeris sees it: on the ellipsoid while the altitude is
  /// not known, and without a height above the horizon unless it is switched on
  /// and both altitudes are known.
  PtPosition getPtPosition() const;

  /// The form in which observers are kept in settings; it reads back equal.
  /// Nullopt for what is no archive of an observer at a valid coordinate; fields
  /// that an archive lacks keep their initial values.
  PropertyList archive() const;
  static std::optional<ZVObserver> fromArchive(const PropertyList& archive);

  friend bool operator==(const ZVObserver&, const ZVObserver&) = default;
};

}  // namespace zenivo
