#include "input/PlaceLinks.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "input/Characters.h"

namespace zenivo {
namespace {

constexpr std::string_view kGeo = "geo:";

/// Reads a number from the front of a text, past blanks and a plus sign.
std::optional<double> takeNumber(std::string_view& text) {
  while (text.starts_with(' ') || text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [last, error] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(last - text.data()));
  return value;
}

bool take(std::string_view& text, std::string_view beginning) {
  if (!text.starts_with(beginning)) return false;
  text.remove_prefix(beginning.size());
  return true;
}

/// Two numbers with `between` between them, at the front of a text.
std::optional<ZVLocation> takePair(std::string_view& text, std::string_view between) {
  const auto latitude = takeNumber(text);
  if (!latitude || !take(text, between)) return std::nullopt;
  const auto longitude = takeNumber(text);
  if (!longitude) return std::nullopt;
  return ZVLocation(Coordinate{*latitude, *longitude});
}

std::optional<std::string_view> after(std::string_view text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  if (at == std::string_view::npos) return std::nullopt;
  return text.substr(at + mark.size());
}

/// The value of a parameter of an address, and what follows it.
std::optional<std::string_view> parameter(std::string_view link, std::string_view name) {
  for (const char before : {'?', '&'}) {
    if (const auto value = after(link, before + std::string(name) + '=')) return value;
  }
  return std::nullopt;
}

std::optional<ZVLocation> locationOfParameters(std::string_view link) {
  for (const std::string_view name : {"q", "query", "destination", "daddr", "ll"}) {
    auto value = parameter(link, name);
    if (!value) continue;
    take(*value, "loc:");
    if (const auto location = takePair(*value, ",")) return location;
  }
  auto latitude = parameter(link, "mlat");
  auto longitude = parameter(link, "mlon");
  if (!latitude || !longitude) return std::nullopt;
  const auto north = takeNumber(*latitude);
  const auto east = takeNumber(*longitude);
  if (!north || !east) return std::nullopt;
  return ZVLocation(Coordinate{*north, *east});
}

/// Commas that the address bar wrote as %2C.
std::string withCommas(std::string_view link) {
  std::string text(link);
  for (const std::string_view written : {"%2C", "%2c"}) {
    for (std::size_t at; (at = text.find(written)) != std::string::npos;) {
      text.replace(at, written.size(), ",");
    }
  }
  return text;
}

/// The digits and the fraction of an angle of ISO 6709, in degrees; its degrees have
/// `degreeDigits` digits.
std::optional<double> angleOfIso6709(std::string_view& text, std::size_t degreeDigits) {
  const bool isNegative = text.starts_with('-');
  if (!isNegative && !text.starts_with('+')) return std::nullopt;
  text.remove_prefix(1);
  const auto digits =
      static_cast<std::size_t>(std::ranges::find_if_not(text, isDigit) - text.begin());
  if (digits < degreeDigits || digits > degreeDigits + 4 || (digits - degreeDigits) % 2 != 0) {
    return std::nullopt;
  }
  const auto value = takeNumber(text);
  if (!value) return std::nullopt;
  // DDMMSS.s: the last two digits are the seconds, those before the minutes.
  double degrees = *value;
  if (digits > degreeDigits + 2) {
    const double minutes = std::floor(*value / 100);
    const double seconds = *value - minutes * 100;
    if (seconds >= 60) return std::nullopt;
    degrees = minutes + seconds / 60;
  }
  if (digits > degreeDigits) {
    const double whole = std::floor(degrees / 100);
    const double minutes = degrees - whole * 100;
    if (minutes >= 60) return std::nullopt;
    degrees = whole + minutes / 60;
  }
  return isNegative ? 0 - degrees : degrees;
}

}  // namespace

bool isPlaceLink(std::string_view text) {
  const std::size_t at = text.find('@');
  const bool hasPlaceAfterAt = at != std::string_view::npos && at + 1 < text.size() &&
                               (isDigit(text[at + 1]) || text[at + 1] == '-');
  return text.starts_with(kGeo) || text.find("://") != std::string_view::npos ||
         text.find("#map=") != std::string_view::npos || text.starts_with("?q=") || hasPlaceAfterAt;
}

std::optional<ZVLocation> locationOfLink(std::string_view link) {
  const std::string text = withCommas(link);
  if (const auto location = locationOfParameters(text)) return location;
  if (auto pin = after(text, "!3d")) {
    if (const auto location = takePair(*pin, "!4d")) return location;
  }
  if (auto map = after(text, "#map=")) {
    takeNumber(*map);  // the zoom
    if (take(*map, "/")) return takePair(*map, "/");
  }
  if (auto middle = after(text, "@")) return takePair(*middle, ",");
  std::string_view geo = text;
  if (!take(geo, kGeo)) return std::nullopt;
  auto location = takePair(geo, ",");
  if (location && take(geo, ",")) {
    const auto altitude = takeNumber(geo);
    if (!altitude) return std::nullopt;
    location = ZVLocation(location->coordinate, *altitude);
  }
  return location;
}

std::optional<ZVLocation> locationOfIso6709(std::string_view text) {
  const auto latitude = angleOfIso6709(text, 2);
  if (!latitude) return std::nullopt;
  const auto longitude = angleOfIso6709(text, 3);
  if (!longitude) return std::nullopt;
  ZVLocation location(Coordinate{*latitude, *longitude});
  if (text.starts_with('+') || text.starts_with('-')) {
    const bool isBelow = text.front() == '-';
    text.remove_prefix(1);
    const auto altitude = takeNumber(text);
    if (!altitude || *altitude < 0) return std::nullopt;
    location = ZVLocation(location.coordinate, isBelow ? 0 - *altitude : *altitude);
  }
  if (take(text, "CRS") && text.find('/') != std::string_view::npos) {
    text.remove_prefix(text.find('/'));
  }
  take(text, "/");
  return text.empty() ? std::optional(location) : std::nullopt;
}

}  // namespace zenivo
