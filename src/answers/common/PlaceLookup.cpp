#include "answers/common/PlaceLookup.h"

#include <fmt/format.h>

#include "input/CoordinateParser.h"
#include "input/Gazetteer.h"
#include "input/InputError.h"
#include "input/PlaceFinder.h"
#include "input/ZoneMap.h"
#include "input/ZoneParser.h"

namespace zenivo {
namespace {

/// "3 km from Levallois-Perret; GeoNames, CC BY 4.0", or nothing in the wilderness.
std::string placeNear(const Gazetteer& gazetteer, const Coordinate& coordinate) {
  constexpr double kReach = 50;
  const auto near = gazetteer.nearest(coordinate, kReach);
  if (!near) return {};
  return fmt::format("{:.0f} km from {}; {}", near->kilometres, gazetteer.place(near->place).name,
                     kGeoNamesCredit);
}

}  // namespace

TypedPlace placeFrom(std::string_view text) {
  if (looksLikeCoordinates(text)) {
    const ZVLocation location = parseCoordinates(text);
    return {.location = location,
            .name = {},
            .origin = placeNear(Gazetteer(), location.coordinate),
            .country = {}};
  }
  const NamedPlace place = findPlace(Gazetteer(), text);
  return {.location = place.location,
          .name = place.label,
          .origin = place.isPointOfInterest ? "catalogue" : std::string(kGeoNamesCredit),
          .country = place.country};
}

Scene sceneFrom(std::string_view place, std::string_view zone) {
  const TypedPlace typed = placeFrom(place);
  Scene scene{.location = typed.location,
              .placeName = typed.name,
              .placeOrigin = typed.origin,
              .zone = {},
              .zoneOrigin = "as given"};
  if (!zone.empty()) {
    scene.zone = parseZone(zone);
    return scene;
  }
  const PlaceZones zones = ZoneMap().at(typed.location.coordinate, typed.country);
  const auto found = TimeZone::timeZoneWithName(zones.name);
  if (!found) {
    throw InputError(fmt::format("the place's time zone {} is not known here; give one with --zone",
                                 inQuotes(zones.name)));
  }
  scene.zone = *found;
  scene.zoneOrigin = zones.origin();
  return scene;
}

}  // namespace zenivo
