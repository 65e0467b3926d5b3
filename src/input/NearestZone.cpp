#include "input/NearestZone.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>

#include "place/GreatCircle.h"

namespace zenivo {
namespace {

constexpr double kFarthest = 370.4;  // kilometres in 200 nautical miles
constexpr const char* kZonePlaces = "/usr/share/zoneinfo/zone.tab";

struct Nearest {
  double kilometres = std::numeric_limits<double>::infinity();
  ZoneGuess zone;
};

/// True when the parallels alone keep two places apart by more than `kilometres`.
bool isFarInLatitude(double latitude1, double latitude2, double kilometres) {
  constexpr double kKilometresPerDegree = 111.1;
  return std::fabs(latitude1 - latitude2) * kKilometresPerDegree > kilometres;
}

Nearest nearestCity(const GeoNames& geoNames, const ZVLocation& location) {
  double nearest = kFarthest;
  std::optional<City> found;
  geoNames.forEachCity([&](const City& city) {
    if (isFarInLatitude(city.latitude(), location.coordinate.latitude, nearest)) return;
    const double kilometres =
        greatCircleKilometres(location.coordinate.latitude, location.coordinate.longitude,
                              city.latitude(), city.longitude());
    if (kilometres >= nearest || city.timeZone().empty()) return;
    nearest = kilometres;
    found = city;
  });
  if (!found) return {};
  return {.kilometres = nearest,
          .zone = {.name = std::string(found->timeZone()),
                   .origin = fmt::format("of {}, {:.0f} km away; {}", found->name(), nearest,
                                         kGeoNamesCredit)}};
}

/// Degrees of "+DDMM", "+DDMMSS", "+DDDMM" or "+DDDMMSS" (ISO 6709).
double degreesOfIso6709(std::string_view text) {
  const std::size_t degreeDigits = text.size() == 5 || text.size() == 7 ? 2 : 3;
  const auto digits = [&](std::size_t from, std::size_t count) {
    int value = 0;
    if (from + count <= text.size()) {
      std::from_chars(text.data() + from, text.data() + from + count, value);
    }
    return value;
  };
  const double degrees = digits(1, degreeDigits) + digits(1 + degreeDigits, 2) / 60.0 +
                         digits(3 + degreeDigits, 2) / 3600.0;
  return text.starts_with('-') ? -degrees : degrees;
}

/// The nearest of the places that the database lists, one a zone and country.
Nearest nearestPlaceOfDatabase(const ZVLocation& location) {
  Nearest nearest{.kilometres = kFarthest, .zone = {}};
  std::ifstream table(kZonePlaces);
  for (std::string line; std::getline(table, line);) {
    std::istringstream words(line);
    std::string country, coordinates, name;
    words >> country >> coordinates >> name;
    const std::size_t longitude = coordinates.find_first_of("+-", 1);
    if (country.starts_with('#') || longitude == std::string::npos) continue;
    const std::string_view both = coordinates;
    const double kilometres = greatCircleKilometres(
        location.coordinate.latitude, location.coordinate.longitude,
        degreesOfIso6709(both.substr(0, longitude)), degreesOfIso6709(both.substr(longitude)));
    if (kilometres >= nearest.kilometres) continue;
    nearest = {.kilometres = kilometres,
               .zone = {.name = name,
                        .origin = fmt::format("of a place {:.0f} km away in the time zone database",
                                              kilometres)}};
  }
  return nearest;
}

}  // namespace

std::string nauticalZone(double longitude) {
  const int hours = static_cast<int>(std::lround(longitude / 15));
  // The names count westward, against the sign of the offset.
  return hours == 0 ? "Etc/GMT" : fmt::format("Etc/GMT{:+d}", -hours);
}

ZoneGuess nearestZone(const GeoNames& geoNames, const ZVLocation& location) {
  const Nearest city = nearestCity(geoNames, location);
  const Nearest place = nearestPlaceOfDatabase(location);
  const bool isPlaceBetter =
      place.kilometres < city.kilometres && place.zone.name != city.zone.name;
  const ZoneGuess& guess = isPlaceBetter ? place.zone : city.zone;
  if (!guess.name.empty()) return guess;
  return {.name = nauticalZone(location.coordinate.longitude),
          .origin = "nautical, no known place within 200 nautical miles"};
}

}  // namespace zenivo
