#include "answers/library/Pois.h"

#include <algorithm>

namespace zenivo {
namespace {

constexpr std::size_t kNearestShown = 20;

Json placeJson(const PlaceOfInterest& place) {
  return {{"pid", place.pid ? Json(*place.pid) : Json(nullptr)},
          {"name", place.name},
          {"country", place.country},
          {"category", place.category},
          {"latitude", place.coordinate.latitude},
          {"longitude", place.coordinate.longitude},
          {"distance", place.kilometres ? Json(*place.kilometres) : Json(nullptr)}};
}

}  // namespace

PoisReport answer(const PoisQuestion& question, Stores& stores) {
  Error error;
  PoisReport report{
      expectFetched(placesOfInterest(stores.database(), question.text, &error), error)};
  if (question.near) {
    sortByDistance(report.pois, *question.near);
  }
  const std::size_t most =
      question.limit.value_or(question.near ? kNearestShown : report.pois.size());
  if (report.pois.size() > most) report.pois.resize(most);
  return report;
}

Json json(const PoisReport& report) {
  Json pois = Json::array();
  for (const PlaceOfInterest& place : report.pois) pois.push_back(placeJson(place));
  return {{"pois", std::move(pois)}};
}

}  // namespace zenivo
