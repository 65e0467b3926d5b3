#include "data/pois/PlacesOfInterest.h"

#include <algorithm>
#include <map>

#include "data/stores/StaticEntities.h"
#include "data/stores/UserEntities.h"
#include "place/LocationUtils.h"

namespace zenivo {
namespace {

using Places = std::vector<PlaceOfInterest>;
using CategoryNames = std::map<std::optional<std::int32_t>, std::string>;

template <class Object>
PlaceOfInterest placeFrom(const Object& object) {
  return {.pid = {},
          .name = object.getOr(Object::name, std::string()),
          .country = object.getOr(Object::country, std::string()),
          .category = {},
          .coordinate = {object.getOr(Object::latitude, 0.0), object.getOr(Object::longitude, 0.0)},
          .kilometres = {}};
}

std::string nameOf(const PoiCategory& category) {
  return category.getOr(PoiCategory::name, std::string());
}

/// The objects that meet the condition, all without one, by name.
template <class Object>
std::optional<std::vector<std::shared_ptr<Object>>> fetch(ManagedObjectContext& context,
                                                          std::optional<Predicate> predicate,
                                                          Error* error) {
  FetchRequest request;
  request.entityName = Object::kEntityName;
  request.predicate = std::move(predicate);
  request.sortDescriptors = {{std::string(Object::name.key)}};
  const auto objects = context.executeFetchRequest(request, error);
  return objects ? std::optional(objectsOfClass<Object>(*objects)) : std::nullopt;
}

bool addOwn(Database& database, const std::string& text, Places& places, Error* error) {
  const auto categories =
      fetch<PoiCategory>(*database.staticManagedObjectContext(), std::nullopt, error);
  if (!categories) return false;
  CategoryNames names;
  for (const auto& category : *categories) {
    names[category->get(PoiCategory::cid)] = nameOf(*category);
  }
  std::optional<Predicate> predicate;
  if (!text.empty()) {
    predicate = Predicate::predicateWithFormat(
        "(name contains[cd] %@) OR (country contains[cd] %@)", text, text);
  }
  const auto pois = fetch<CustomPoi>(*database.managedObjectContext(), std::move(predicate), error);
  if (!pois) return false;
  for (const auto& poi : *pois) {
    places.push_back(placeFrom(*poi));
    const auto name = names.find(poi->get(CustomPoi::cid));
    if (name != names.end()) places.back().category = name->second;
  }
  return true;
}

bool addCatalogue(Database& database, const std::string& text, Places& places, Error* error) {
  std::optional<Predicate> predicate;
  if (!text.empty()) {
    predicate = Predicate::predicateWithFormat(
        "(name contains[cd] %@) OR (country contains[cd] %@) OR (category.name contains[cd] %@)",
        text, text, text);
  }
  const auto pois = fetch<Poi>(*database.staticManagedObjectContext(), std::move(predicate), error);
  if (!pois) return false;
  for (const auto& poi : *pois) {
    places.push_back(placeFrom(*poi));
    places.back().pid = poi->get(Poi::pid);
    if (const auto category = poi->get(Poi::category)) places.back().category = nameOf(*category);
  }
  return true;
}

}  // namespace

std::optional<Places> placesOfInterest(Database& database, std::string_view text, Error* error) {
  const std::string contained(text);
  Places places;
  if (database.hasUserStore() && !addOwn(database, contained, places, error)) return std::nullopt;
  if (!addCatalogue(database, contained, places, error)) return std::nullopt;
  return places;
}

void sortByDistance(Places& places, const Coordinate& from) {
  for (PlaceOfInterest& place : places) {
    place.kilometres = LocationUtils::greatCircleDistanceWithSource(from, place.coordinate);
  }
  std::ranges::stable_sort(places, {}, &PlaceOfInterest::kilometres);
}

}  // namespace zenivo
