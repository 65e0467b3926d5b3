#include "answers/common/PlaceLookup.h"

#include <fmt/format.h>

#include <optional>

#include "answers/common/Stores.h"
#include "data/stores/UserEntities.h"
#include "input/CoordinateParser.h"
#include "input/Gazetteer.h"
#include "input/InputError.h"
#include "input/PlaceFinder.h"
#include "input/TextFolding.h"
#include "input/ZoneMap.h"
#include "input/ZoneParser.h"

namespace zenivo {
namespace {

/// The user's own point of that name.  A store that cannot be read has none here: whoever
/// asks for the Sun in Paris need not mend it first.
std::optional<TypedPlace> ownPoint(std::string_view name, Database& database) {
  if (!database.hasUserStore()) return std::nullopt;
  TextFolder folder;
  const std::u32string folded = folder.fold(name);
  try {
    FetchRequest request;
    request.entityName = CustomPoi::kEntityName;
    Error error;
    const auto points =
        expectFetched(Stores(database).own().executeFetchRequest(request, &error), error);
    for (const auto& point : objectsOfClass<CustomPoi>(points)) {
      const std::string own = point->getOr(CustomPoi::name, std::string());
      if (folded.empty() || !folder.foldsTo(own, folded)) continue;
      const Coordinate coordinate{point->getOr(CustomPoi::latitude, 0.0),
                                  point->getOr(CustomPoi::longitude, 0.0)};
      return TypedPlace{.location = ZVLocation(coordinate),
                        .name = own,
                        .origin = "your own point",
                        .country = {}};
    }
  } catch (const std::runtime_error&) {
  }
  return std::nullopt;
}

/// "3 km from Levallois-Perret; GeoNames, CC BY 4.0", or nothing in the wilderness.
std::string placeNear(const Gazetteer& gazetteer, const Coordinate& coordinate) {
  constexpr double kReach = 50;
  const auto near = gazetteer.nearest(coordinate, kReach);
  if (!near) return {};
  return fmt::format("{:.0f} km from {}; {}", near->kilometres, gazetteer.place(near->place).name,
                     kGeoNamesCredit);
}

}  // namespace

TypedPlace placeFrom(std::string_view text, Database& database) {
  if (looksLikeCoordinates(text)) {
    const ZVLocation location = parseCoordinates(text);
    return {.location = location,
            .name = {},
            .origin = placeNear(Gazetteer(), location.coordinate),
            .country = {}};
  }
  if (auto own = ownPoint(text, database)) return *std::move(own);
  const NamedPlace place = findPlace(Gazetteer(), text);
  return {.location = place.location,
          .name = place.label,
          .origin = place.isPointOfInterest ? "catalogue" : std::string(kGeoNamesCredit),
          .country = place.country};
}

Scene sceneFrom(std::string_view place, std::string_view zone, Database& database) {
  const TypedPlace typed = placeFrom(place, database);
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
