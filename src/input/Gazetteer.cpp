#include "input/Gazetteer.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "place/LocationUtils.h"

namespace zenivo {
namespace {

constexpr double kUnitsPerDegree = 1e5;

Coordinate coordinateOf(const gazetteer::Place& place) {
  return {place.latitude / kUnitsPerDegree, place.longitude / kUnitsPerDegree};
}

}  // namespace

std::string GazetteerPlace::label() const {
  std::string text(name);
  if (!region.empty() && region != name) text += fmt::format(", {}", region);
  if (!country.empty()) text += fmt::format(", {}", country);
  return text;
}

Gazetteer::Gazetteer(const std::filesystem::path& file) : file_(file, gazetteer::kMagic) {
  const gazetteer::Header header = file_.next<gazetteer::Header>(1).front();
  keyCount_ = header.keys;
  places_ = file_.next<gazetteer::Place>(header.places);
  keys_ = file_.next<gazetteer::Key>(keyCount_ + 1);
  entries_ = file_.next<gazetteer::Entry>(header.entries);
  regions_ = file_.next<gazetteer::Region>(header.regions);
  countries_ = file_.next<gazetteer::Country>(header.countries);
  texts_ = file_.next<char>(header.text).data();
}

GazetteerPlace Gazetteer::place(std::uint32_t index) const {
  const gazetteer::Place& row = places_[index];
  GazetteerPlace place;
  place.name = text(row.name);
  place.coordinate = coordinateOf(row);
  place.population = row.population;
  place.kind = row.kind;
  if (row.altitude != gazetteer::kUnknownAltitude) place.altitude = row.altitude;
  if (row.country != gazetteer::kNone) place.country = text(countries_[row.country].code);
  if (row.region != gazetteer::kNone) {
    const gazetteer::Region& region = regions_[row.region];
    place.region = text(region.name);
    place.regionCode = text(region.code);
    place.regionPostal = text(region.postal);
  }
  return place;
}

std::size_t Gazetteer::firstKeyFrom(std::string_view beginning) const {
  const auto keys = keys_.first(keyCount_);
  const auto found = std::ranges::lower_bound(
      keys, beginning, {}, [&](const gazetteer::Key& key) { return text(key.text); });
  return static_cast<std::size_t>(found - keys.begin());
}

std::span<const gazetteer::Entry> Gazetteer::named(std::string_view folded) const {
  const std::size_t key = firstKeyFrom(folded);
  if (key == keyCount_ || text(keys_[key].text) != folded) return {};
  return entriesOf(key);
}

std::optional<Gazetteer::Near> Gazetteer::nearest(const Coordinate& coordinate,
                                                  double reach) const {
  constexpr double kKilometresPerDegree = 110.5;  // of latitude, where they are shortest
  const auto latitude = [&](double north) {
    return (coordinate.latitude + north / kKilometresPerDegree) * kUnitsPerDegree;
  };
  const auto from = std::ranges::lower_bound(places_, latitude(-reach), {},
                                             [](const auto& place) { return place.latitude; });
  std::optional<Near> near;
  for (auto place = from; place != places_.end() && place->latitude <= latitude(reach); ++place) {
    if (place->kind == gazetteer::Kind::pointOfInterest) continue;
    const Coordinate there = coordinateOf(*place);
    const double kilometres = LocationUtils::greatCircleDistanceWithSource(coordinate, there);
    if (kilometres > reach) continue;
    reach = kilometres;
    near = {static_cast<std::uint32_t>(place - places_.begin()), kilometres};
  }
  return near;
}

}  // namespace zenivo
