#include "calculators/camera/CameraValuesParser.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "calculators/camera/CameraFilter.h"
#include "calculators/camera/TextScanner.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

bool scanAny(TextScanner& scanner, std::initializer_list<std::string_view> words) {
  return std::ranges::any_of(words,
                             [&scanner](std::string_view word) { return scanner.scan(word); });
}

/// A value read to the end of the text and above 0.
std::optional<float> positive(TextScanner& scanner, std::optional<double> value) {
  if (!value || !scanner.atEnd()) return std::nullopt;
  const auto number = static_cast<float>(*value);
  return number > 0 && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

/// 1 or -1 by the sign that comes next.
double scanSign(TextScanner& scanner) {
  if (scanAny(scanner, {"-", "−"})) return -1;
  scanner.scan("+");
  return 1;
}

std::optional<double> signedValue(TextScanner& scanner, bool withFraction) {
  const double sign = scanSign(scanner);
  const auto size = withFraction ? scanner.mixedNumber() : scanner.number();
  return size ? std::optional(sign * *size) : std::nullopt;
}

bool scanFeet(TextScanner& scanner) {
  return scanAny(scanner, {"'", "′", "’", "ft", "foot", "feet"});
}

bool scanInches(TextScanner& scanner) {
  return scanAny(scanner, {"\"", "″", "”", "''", "in", "inch", "inches"});
}

/// Metres in the unit that comes next.
std::optional<double> scanLengthUnit(TextScanner& scanner) {
  if (scanner.scan("mm")) return 0.001;
  if (scanner.scan("cm")) return 0.01;
  if (scanner.scan("km")) return 1000;
  if (scanner.scan("mi")) return 1609.344;
  if (scanAny(scanner, {"m", "metre", "metres", "meter", "meters"})) return 1;
  if (scanInches(scanner)) return 0.0254;
  if (scanFeet(scanner)) return 0.3048;
  if (scanAny(scanner, {"yd", "yard", "yards"})) return 0.9144;
  return std::nullopt;
}

/// Seconds in the unit that comes next.
std::optional<double> scanTimeUnit(TextScanner& scanner) {
  if (scanAny(scanner, {"d", "day", "days"})) return 86400;
  if (scanAny(scanner, {"h", "hour", "hours"})) return 3600;
  if (scanAny(scanner, {"s", "sec", "second", "seconds", "\"", "″", "”", "''"})) return 1;
  if (scanAny(scanner, {"min", "m", "minute", "minutes", "'", "′", "’"})) return 60;
  return std::nullopt;
}

/// Days, hours, minutes and seconds, each with its unit; a single number needs none, nor do
/// two digits behind hours or minutes: "2h30".
std::optional<double> scanDuration(TextScanner& scanner) {
  double total = 0;
  double lastUnit = 0;
  do {
    if (lastUnit == 3600 || lastUnit == 60) {
      if (const auto part = scanner.lastTwoDigits()) return total + *part * lastUnit / 60;
    }
    const auto value = scanner.mixedNumber();
    if (!value) return std::nullopt;
    if (lastUnit == 0 && scanner.atEnd()) return value;
    const auto unit = scanTimeUnit(scanner);
    if (!unit) return std::nullopt;
    total += *value * *unit;
    lastUnit = *unit;
  } while (!scanner.atEnd());
  return total;
}

/// "1:30:00" or "5:00".
std::optional<double> scanClock(TextScanner& scanner) {
  std::optional<double> total = scanner.number();
  if (!total || !scanner.scan(":")) return std::nullopt;
  do {
    const auto next = scanner.number();
    if (!next || *next >= 60) return std::nullopt;
    total = *total * 60 + *next;
  } while (scanner.scan(":"));
  return total;
}

FilterValue filterOfStops(double stops) {
  constexpr double kLadderTolerance = 0.0005;
  const float nearest =
      CameraFilter::findNearestCameraFilter(static_cast<float>(stops)).fStopReduction;
  if (std::abs(nearest - stops) < kLadderTolerance) return {nearest, 0};
  return {static_cast<float>(std::trunc(stops)), static_cast<float>(stops - std::trunc(stops))};
}

/// The stops of a filter by the number in its name.  With a decimal point that is the
/// optical density, 0.3 a stop.  Else it is the factor by which it lengthens an exposure,
/// which makers round: ND1000 has ten stops.
std::optional<double> stopsOfFilterName(double number, bool isDensity) {
  constexpr double kDensityOfStop = 0.3;
  constexpr double kStep = 1.0 / 3;
  constexpr double kMakersRounding = 0.07;  // stops
  for (const CameraFilter& filter : CameraFilter::standardFilters()) {
    if (filter.description == fmt::format("ND{}", number)) return filter.fStopReduction;
  }
  const double stops = isDensity ? number / kDensityOfStop : std::log2(number);
  const double nearest = std::round(stops / kStep) * kStep;
  const bool isFilter = nearest > 0 && std::abs(stops - nearest) < kMakersRounding;
  return isFilter ? std::optional(nearest) : std::nullopt;
}

std::optional<FilterValue> filterNamed(std::string_view text) {
  TextScanner scanner(text);
  scanner.scan("ND");
  const auto number = scanner.number();
  if (!number) return std::nullopt;
  if (scanner.scan("/") && !scanner.number()) return std::nullopt;
  const bool isDensity = text.substr(0, text.find('/')).find('.') != std::string_view::npos;
  const auto stops = stopsOfFilterName(*number, isDensity);
  if (!stops || !scanner.atEnd()) return std::nullopt;
  return filterOfStops(*stops);
}

}  // namespace

std::optional<float> CameraValuesParser::parseFocalLength(std::string_view text) {
  TextScanner scanner(text);
  const auto number = scanner.number();
  if (!number) return std::nullopt;
  const double unit = scanner.atEnd() ? 0.001 : scanLengthUnit(scanner).value_or(0);
  return positive(scanner, *number * unit);
}

std::optional<float> CameraValuesParser::parseAperture(std::string_view text) {
  TextScanner scanner(text);
  scanAny(scanner, {"f/", "ƒ/", "1:", "ƒ", "f"});
  return positive(scanner, scanner.number());
}

std::optional<float> CameraValuesParser::parseShutterSpeed(std::string_view text) {
  TextScanner scanner(text);
  if (scanner.scan(kInfinityText)) {
    scanner.scan("s");
    if (scanner.atEnd()) return std::numeric_limits<float>::infinity();
    return std::nullopt;
  }
  const auto seconds = scanDuration(scanner);
  return seconds && scanner.atEnd() ? std::optional(static_cast<float>(*seconds)) : std::nullopt;
}

std::optional<float> CameraValuesParser::parseDistance(std::string_view text, UnitSystem units) {
  TextScanner scanner(text);
  if (scanAny(scanner, {kInfinityText, "inf", "infinity"})) {
    return scanner.atEnd() ? std::optional(-1.0F) : std::nullopt;
  }
  const auto number = scanner.mixedNumber();
  if (!number) return std::nullopt;
  double metres = *number * (units == UnitSystem::imperial ? 0.3048 : 1);
  if (!scanner.atEnd()) {
    const auto unit = scanLengthUnit(scanner);
    if (!unit) return std::nullopt;
    metres = *number * *unit;
    if (*unit == 0.3048 && !scanner.atEnd()) {
      const auto inches = scanner.mixedNumber();
      if (!inches || (!scanner.atEnd() && !scanInches(scanner))) return std::nullopt;
      metres += *inches * 0.0254;
    }
  }
  const auto distance = static_cast<float>(metres);
  return scanner.atEnd() && std::isfinite(distance) ? std::optional(distance) : std::nullopt;
}

std::optional<double> CameraValuesParser::parseTimeDuration(std::string_view text) {
  TextScanner clockScanner(text);
  if (const auto seconds = scanClock(clockScanner); seconds && clockScanner.atEnd()) return seconds;
  TextScanner scanner(text);
  const auto seconds = scanDuration(scanner);
  return seconds && scanner.atEnd() && std::isfinite(*seconds) ? seconds : std::nullopt;
}

std::optional<float> CameraValuesParser::parseAngle(std::string_view text) {
  TextScanner scanner(text);
  const auto degrees = signedValue(scanner, false);
  scanAny(scanner, {"°", "deg", "degree", "degrees"});
  return degrees && scanner.atEnd() ? std::optional(static_cast<float>(*degrees)) : std::nullopt;
}

std::optional<float> CameraValuesParser::parseISO(std::string_view text) {
  TextScanner scanner(text);
  scanner.scan("ISO");
  return positive(scanner, scanner.number());
}

std::optional<float> CameraValuesParser::parseTeleconverter(std::string_view text) {
  TextScanner scanner(text);
  if (scanner.scan(kNoValueText)) return scanner.atEnd() ? std::optional(1.0F) : std::nullopt;
  const auto factor = scanner.number();
  scanAny(scanner, {"x", "×"});
  return positive(scanner, factor);
}

std::optional<FilterValue> CameraValuesParser::parseFilter(std::string_view text) {
  if (const auto plus = text.find('+'); plus != std::string_view::npos) {
    const auto first = parseFilter(text.substr(0, plus));
    const auto rest = parseFilter(text.substr(plus + 1));
    if (!first || !rest) return std::nullopt;
    return filterOfStops(double{first->stops} + first->fraction + rest->stops + rest->fraction);
  }
  TextScanner scanner(text);
  if (scanAny(scanner, {kNoValueText, "none"}))
    return scanner.atEnd() ? std::optional<FilterValue>({0, 0}) : std::nullopt;
  if (scanner.scan("ND")) return filterNamed(text);
  auto stops = scanner.mixedNumber();
  // A fraction that is no simple one is shown as a decimal: "8 0.92 stops".
  if (const auto part = scanner.number(); stops && part && *part < 1) *stops += *part;
  scanAny(scanner, {"stop", "stops"});
  if (!stops || !scanner.atEnd()) return std::nullopt;
  return filterOfStops(*stops);
}

bool CameraValuesParser::mayBeDensity(std::string_view text) {
  constexpr double kDensityOfStop = 0.3;
  TextScanner scanner(text);
  const auto number = scanner.number();
  if (!number || !scanner.atEnd() || text.find_first_of(".,") == text.npos) return false;
  const double stops = *number / kDensityOfStop;
  return std::abs(stops - std::round(stops)) < 1e-6;
}

std::optional<float> CameraValuesParser::parseEV(std::string_view text) {
  TextScanner scanner(text);
  const auto stops = signedValue(scanner, true);
  return stops && scanner.atEnd() ? std::optional(static_cast<float>(*stops)) : std::nullopt;
}

std::optional<float> CameraValuesParser::parseCoC(std::string_view text) {
  TextScanner scanner(text);
  const auto millimetres = scanner.number();
  scanner.scan("mm");
  return positive(scanner, millimetres);
}

std::optional<double> CameraValuesParser::parseMB(std::string_view text) {
  TextScanner scanner(text);
  auto megabytes = scanner.number();
  if (megabytes && scanner.scan("GB")) *megabytes *= 1024;
  scanner.scan("MB");
  const bool valid = megabytes && scanner.atEnd() && *megabytes > 0;
  return valid ? megabytes : std::nullopt;
}

std::optional<double> CameraValuesParser::parseFps(std::string_view text) {
  TextScanner scanner(text);
  const auto frames = scanner.number();
  scanner.scan("fps");
  return frames && scanner.atEnd() && *frames > 0 ? frames : std::nullopt;
}

}  // namespace zenivo
