#include "place/ZVObserver.h"

#include <algorithm>
#include <cmath>

#include "foundation/KeyedArchive.h"

namespace zenivo {
ZVObserver::ZVObserver(const ZVLocation& location) : PinLocation(location.coordinate) {
  if (!location.isAltitudeKnown()) return;
  altitude = static_cast<float>(location.altitude);
  altitudeAccuracy = kAltitudeSetManually;
}

bool ZVObserver::isAltitudeAtHorizonValid() const {
  return altitudeAtHorizon != kNoAltitudeAtHorizon && altitudeAtHorizon != kUnknownAltitude &&
         std::isfinite(altitudeAtHorizon);
}

void ZVObserver::resetHorizon() {
  horizonPosition = kInvalidCoordinate;
  altitudeAtHorizon = kNoAltitudeAtHorizon;
  adjustForHeightAboveHorizon = false;
}

PtPosition ZVObserver::getPtPosition() const {
  const double height = isAltitudeValid() ? double{totalAltitude()} : 0.0;
  const bool adjusted =
      adjustForHeightAboveHorizon && isAltitudeValid() && isAltitudeAtHorizonValid();
  return {coordinate.latitude, coordinate.longitude, height,
          adjusted ? height - double{altitudeAtHorizon} : 0.0};
}

PropertyList ZVObserver::archive() const {
  return PropertyList::Dictionary{
      {"latitude", coordinate.latitude},
      {"longitude", coordinate.longitude},
      {"altitude", altitude},
      {"altitudeOffset", altitudeOffset},
      {"altitudeAccuracy", altitudeAccuracy},
      {"horizonLatitude", horizonPosition.latitude},
      {"horizonLongitude", horizonPosition.longitude},
      {"altitudeAtHorizon", altitudeAtHorizon},
      {"adjustForHeightAboveHorizon", adjustForHeightAboveHorizon},
  };
}

std::optional<ZVObserver> ZVObserver::fromArchive(const PropertyList& archive) {
  const KeyedUnarchiver coder(archive);
  const auto coordinate = [&coder](std::string_view latitude, std::string_view longitude) {
    return Coordinate{coder.decodeDouble(latitude, kInvalidCoordinate.latitude),
                      coder.decodeDouble(longitude, kInvalidCoordinate.longitude)};
  };
  ZVObserver observer(coordinate("latitude", "longitude"));
  if (!isValid(observer.coordinate)) return std::nullopt;
  observer.altitude = coder.decodeFloat("altitude", observer.altitude);
  observer.altitudeOffset = coder.decodeFloat("altitudeOffset", observer.altitudeOffset);
  if (coder.containsValueForKey("altitudeAccuracy")) {
    constexpr std::numeric_limits<std::int32_t> kRange;
    observer.altitudeAccuracy = static_cast<std::int32_t>(std::clamp<std::int64_t>(
        coder.decodeInteger("altitudeAccuracy"), kRange.min(), kRange.max()));
  }
  observer.horizonPosition = coordinate("horizonLatitude", "horizonLongitude");
  observer.altitudeAtHorizon = coder.decodeFloat("altitudeAtHorizon", observer.altitudeAtHorizon);
  if (coder.containsValueForKey("adjustForHeightAboveHorizon")) {
    observer.adjustForHeightAboveHorizon = coder.decodeBool("adjustForHeightAboveHorizon");
  }
  return observer;
}

}  // namespace zenivo
