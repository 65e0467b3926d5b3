#include "place/LocationUtils.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "engine/Angles.h"
#include "foundation/LocalizedString.h"
#include "foundation/NumberFormatter.h"
#include "map/geodesy/Geodesic.h"

namespace zenivo {
namespace {

/// An angle of at least 0, cut into units of which each has 60 of the next: whole ones and,
/// of the last, a text with at most `digits` decimals.  A part that rounds to 60 carries.
struct SexagesimalText {
  double whole;
  std::string rest;
};

SexagesimalText splitAngle(double angle, int digits) {
  const double scale = std::pow(10.0, digits);
  // Counted in the smallest unit that shows, so that 59.999 minutes are the next degree.
  const double count = std::round(angle * 60.0 * scale);
  const double whole = std::floor(count / (60.0 * scale));
  const double rest = (count - whole * 60.0 * scale) / scale;
  return {whole, NumberFormatter{.maximumFractionDigits = digits}.stringFromNumber(rest)};
}

std::string integer(double number) {
  return NumberFormatter{}.stringFromNumber(number);
}

std::string magnitudeText(double angle, CoordinateSystem system) {
  constexpr int kDigits = 2;
  switch (system) {
    case CoordinateSystem::decimalDegrees:
      return NumberFormatter{.minimumFractionDigits = 6, .maximumFractionDigits = 6}
                 .stringFromNumber(angle) +
             "°";
    case CoordinateSystem::degreesMinutes: {
      const SexagesimalText minutes = splitAngle(angle, kDigits);
      return integer(minutes.whole) + "° " + minutes.rest + "′";
    }
    case CoordinateSystem::degreesMinutesSeconds:
      break;
  }
  const SexagesimalText seconds = splitAngle(angle * 60.0, kDigits);
  const double degrees = std::floor(seconds.whole / 60.0);
  return integer(degrees) + "° " + integer(seconds.whole - degrees * 60.0) + "′ " + seconds.rest +
         "″";
}

/// What rounds to 0 lies on neither side and takes the positive letter.
std::string angleText(double angle, CoordinateSystem system, const char* positive,
                      const char* negative) {
  const std::string text = magnitudeText(std::abs(angle), system);
  const bool isZero = text.find_first_of("123456789") == std::string::npos;
  return text + " " + (angle < 0 && !isZero ? negative : positive);
}

}  // namespace

double LocationUtils::greatCircleDistanceWithSource(const Coordinate& source,
                                                    const Coordinate& destination) {
  constexpr double kEarthRadius = 6378.137;  // kilometres
  if (source == destination) return 0;
  const double from = source.latitude * kDegree;
  const double to = destination.latitude * kDegree;
  const double cosine = std::sin(from) * std::sin(to) +
                        std::cos(from) * std::cos(to) *
                            std::cos((destination.longitude - source.longitude) * kDegree);
  // Rounding lifts the cosine of points close by or opposite a hair beyond 1.
  return std::acos(std::clamp(cosine, -1.0, 1.0)) * kEarthRadius;
}

Coordinate LocationUtils::calculateDerivedPositionFromSource(const Coordinate& source, float range,
                                                             float andBearing) {
  const GeodesicData way =
      Geodesic::wgs84().Direct(source.latitude, source.longitude, static_cast<double>(andBearing),
                               static_cast<double>(range));
  if (!std::isfinite(way.lat2) || !std::isfinite(way.lon2)) return kInvalidCoordinate;
  return {way.lat2, way.lon2};
}

float LocationUtils::initialBearingFrom(const Coordinate& source, const Coordinate& toDestination) {
  const double from = source.latitude * kDegree;
  const double to = toDestination.latitude * kDegree;
  const double east = (toDestination.longitude - source.longitude) * kDegree;
  const double bearing =
      std::atan2(std::sin(east) * std::cos(to),
                 std::cos(from) * std::sin(to) - std::sin(from) * std::cos(to) * std::cos(east)) /
      kDegree;
  const auto rounded = static_cast<float>(bearing < 0 ? bearing + 360.0 : bearing);
  return rounded == 360.0F ? 0.0F : rounded;
}

std::optional<double> LocationUtils::distanceToHorizon(double height) {
  constexpr double kTwoRadiiBent = 2.0 * 6378.137 * 7.0 / 6.0;  // 14882.3197 km
  if (!(height >= 0)) return std::nullopt;
  return std::sqrt(height / 1000.0 * kTwoRadiiBent);
}

std::string LocationUtils::cardinalNameForBearing(double bearing) {
  struct Sector {
    double end;  // degrees
    std::string_view key;
  };
  // The four main points have the bounds on both of their sides.
  constexpr std::array<Sector, 9> kSectors{{{22.5, "cardinal_point_north_abbr"},
                                            {67.5, "cardinal_point_north_east_abbr"},
                                            {112.5, "cardinal_point_east_abbr"},
                                            {157.5, "cardinal_point_south_east_abbr"},
                                            {202.5, "cardinal_point_south_abbr"},
                                            {247.5, "cardinal_point_south_west_abbr"},
                                            {292.5, "cardinal_point_west_abbr"},
                                            {337.5, "cardinal_point_north_west_abbr"},
                                            {360.0, "cardinal_point_north_abbr"}}};
  if (!(bearing >= 0 && bearing <= 360)) return "--";
  for (std::size_t i = 0; i < kSectors.size(); ++i) {
    const bool isMain = i % 2 == 0;
    if (bearing < kSectors[i].end || (isMain && bearing == kSectors[i].end)) {
      return localizedString(kSectors[i].key, "Common");
    }
  }
  return "--";
}

std::string LocationUtils::latLonStringWithCoordinate(const Coordinate& coordinate,
                                                      CoordinateSystem usingCoordSystem) {
  return angleText(coordinate.latitude, usingCoordSystem, "N", "S") + ", " +
         angleText(coordinate.longitude, usingCoordSystem, "E", "W");
}

}  // namespace zenivo
