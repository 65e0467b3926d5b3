#include "place/ZVObserver.h"

#include <algorithm>
#include <cmath>

namespace zenivo {
namespace {

double realForKey(const PropertyList& archive, std::string_view key, double absent) {
  const PropertyList* value = archive.valueForKey(key);
  return value != nullptr ? value->real().value_or(absent) : absent;
}

float floatForKey(const PropertyList& archive, std::string_view key, float absent) {
  const double value = realForKey(archive, key, absent);
  return std::abs(value) <= std::numeric_limits<float>::max() ? static_cast<float>(value) : absent;
}

}  // namespace

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
  ZVObserver observer(Coordinate{
      realForKey(archive, "latitude", kInvalidCoordinate.latitude),
      realForKey(archive, "longitude", kInvalidCoordinate.longitude),
  });
  if (!isValid(observer.coordinate)) return std::nullopt;
  observer.altitude = floatForKey(archive, "altitude", observer.altitude);
  observer.altitudeOffset = floatForKey(archive, "altitudeOffset", observer.altitudeOffset);
  if (const PropertyList* accuracy = archive.valueForKey("altitudeAccuracy")) {
    constexpr std::numeric_limits<std::int32_t> kRange;
    observer.altitudeAccuracy = static_cast<std::int32_t>(
        std::clamp<std::int64_t>(accuracy->integer().value_or(0), kRange.min(), kRange.max()));
  }
  observer.horizonPosition = {
      realForKey(archive, "horizonLatitude", kInvalidCoordinate.latitude),
      realForKey(archive, "horizonLongitude", kInvalidCoordinate.longitude),
  };
  observer.altitudeAtHorizon =
      floatForKey(archive, "altitudeAtHorizon", observer.altitudeAtHorizon);
  if (const PropertyList* adjust = archive.valueForKey("adjustForHeightAboveHorizon")) {
    observer.adjustForHeightAboveHorizon = adjust->boolean().value_or(false);
  }
  return observer;
}

}  // namespace zenivo
