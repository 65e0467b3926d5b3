#include "calculators/camera/CameraValuesFormatter.h"

#include <fmt/format.h>

#include <cmath>

#include "calculators/camera/CameraFilter.h"
#include "calculators/camera/DistanceUnits.h"
#include "calculators/camera/Ladders.h"
#include "calculators/camera/Texts.h"
#include "foundation/NumberFormatter.h"

namespace zenivo {
namespace {

/// A percentage always has two digits before the point.
std::string percentage(double value) {
  const std::string text = numberWithAtMost(2, value);
  const bool oneDigit = text.size() == 1 || text[1] == '.';
  return oneDigit ? "0" + text : text;
}

/// A duration taken apart; what rounding made of the seconds has been carried.
struct Clock {
  double days = 0;
  double hours = 0;
  double minutes = 0;
  double seconds = 0;
};

/// `total` to the nearest multiple of 10^-decimals.  Everything stays floating
/// point: no duration is too long for it.
Clock clockOf(double total, int decimals, bool withDays) {
  const double scale = std::pow(10, decimals);
  const double rounded = std::floor(total * scale + 0.5);
  Clock clock;
  clock.seconds = std::fmod(rounded, 60 * scale) / scale;
  const double minutes = std::floor(rounded / (60 * scale));
  clock.minutes = std::fmod(minutes, 60);
  clock.hours = std::floor(minutes / 60);
  if (withDays) {
    clock.days = std::floor(clock.hours / 24);
    clock.hours = std::fmod(clock.hours, 24);
  }
  return clock;
}

void append(std::string& text, double count, int decimals, const std::string& unitText) {
  if (count == 0) return;
  if (!text.empty()) text += ' ';
  text += numberWithAtMost(decimals, count) + unitText;
}

}  // namespace

std::string CameraValuesFormatter::formatFocalLength(float metres, bool showUnits,
                                                     bool usesGroupingSeparator) {
  const NumberFormatter formatter{.maximumFractionDigits = 1,
                                  .usesGroupingSeparator = usesGroupingSeparator};
  const std::string number = formatter.stringFromNumber(metres * 1000);
  return showUnits ? fmt::format("{} {}", number, commonText("unit_abbr_mm")) : number;
}

std::string CameraValuesFormatter::formatAperture(double fstop) {
  if (fstop >= 10) return formatAperture(fstop, 0);
  return formatAperture(fstop, fstop < 1 ? 2 : 1);
}

std::string CameraValuesFormatter::formatAperture(double fstop, int decimalPlaces) {
  return "f/" + numberWithAtMost(decimalPlaces, fstop);
}

std::string CameraValuesFormatter::formatDistance(float metres, bool showUnits,
                                                  bool withFraction) const {
  if (std::isnan(metres)) return kNoValueText;
  if (metres < 0 || std::isinf(metres)) return kInfinityText;
  if (units_ == UnitSystem::imperial) {
    return formatFeetAndInches(metres, withFraction);
  }
  if (!showUnits) return numberWithAtMost(2, metres);
  const bool kilometres = metres >= 1000;
  return fmt::format("{} {}", numberWithAtMost(2, kilometres ? metres / 1000 : metres),
                     commonText(kilometres ? "unit_abbr_km" : "unit_abbr_m"));
}

std::string CameraValuesFormatter::formatFeetAndInches(float metres, bool withFraction) const {
  const float total = metres * kFeetPerMetre;
  float feet = std::trunc(total);
  float inches = (total - feet) * 12;
  std::string fraction;
  if (withFraction) {
    fraction = DistanceUnitsManager::fractionInchesForValue(inches - std::trunc(inches));
    inches = std::trunc(inches) + (fraction == "1" ? 1.0F : 0.0F);
    if (fraction == "0" || fraction == "1") fraction.clear();
  } else {
    inches = std::floor(inches + 0.5F);
  }
  if (inches == 12) {
    feet += 1;
    inches = 0;
  }
  std::string inchesText = fmt::format("{:.0f}", inches);
  if (!fraction.empty()) inchesText += " " + fraction;
  if (feet == 0) return fmt::format("{}\"", inchesText);
  if (inchesText == "0") return fmt::format("{:.0f}'", feet);
  return fmt::format("{:.0f}' {}\"", feet, inchesText);
}

std::string CameraValuesFormatter::formatDistanceWithPercentageOf(float metres, float whole) const {
  std::string text = formatDistance(metres, true, true);
  if (!(whole > 0) || !(metres >= 0) || text == kInfinityText) return text;
  return fmt::format("{} ({}%)", text, percentage(metres / whole * 100));
}

std::string CameraValuesFormatter::formatTeleconverter(float factor) {
  return factor == 1 ? kNoValueText : numberWithAtMost(2, factor) + "x";
}

// The platform's formatters for the next two, and for frame rates, also carry a
// rounding increment of 0.00005.  It is finer than half of the last digit shown, and
// ICU then takes no notice of it.

std::string CameraValuesFormatter::formatCoC(float millimetres) {
  return fmt::format("{} {}", numberWithExactly(3, millimetres), commonText("unit_abbr_mm"));
}

std::string CameraValuesFormatter::formatAngle(float degrees) {
  return numberWithExactly(2, degrees) + "°";
}

std::string CameraValuesFormatter::formatSizeWithWidth(float width, float height) const {
  return fmt::format("{} x {}", formatDistance(width), formatDistance(height));
}

std::string CameraValuesFormatter::formatEV(float ev, bool roundValue) {
  if (!std::isfinite(ev)) return kNoValueText;
  const char* sign = ev < 0 ? "-" : "+";
  const double size = std::abs(static_cast<double>(ev));
  if (!roundValue) {
    const std::string number = numberWithAtMost(2, size);
    return number == "0" ? number : sign + number;
  }
  static constexpr double kParts[] = {0, 1.0 / 3, 1.0 / 2, 2.0 / 3, 1};
  double whole = std::trunc(size);
  double part = nearestElement(kParts, size - whole);
  if (part == 1) {
    whole += 1;
    part = 0;
  }
  if (whole == 0 && part == 0) return "0";
  if (part == 0) return fmt::format("{}{:.0f}", sign, whole);
  return fmt::format("{}{:.0f} {}", sign, whole, CameraFilter::textForFractionalStops(part));
}

std::string CameraValuesFormatter::formatISO(float iso) {
  return std::to_string(Iso::findNearestIsoOfValue(iso, Iso::standardISOValues()));
}

std::string CameraValuesFormatter::formatFilterWithValue(float stops, float fraction) {
  const CameraFilter filter = CameraFilter::findNearestCameraFilter(stops);
  if (fraction != 0) return filter.stopReductionTextWithFraction(fraction);
  return filter.fStopReduction == 0 ? kNoValueText : filter.stopReductionText;
}

std::string CameraValuesFormatter::formatFps(double fps) {
  return numberWithAtMost(0, fps) + " fps";
}

std::string CameraValuesFormatter::formatMB(double megabytes) {
  const bool gigabytes = megabytes > 1024;
  return fmt::format("{} {}", numberWithExactly(2, gigabytes ? megabytes / 1024 : megabytes),
                     commonText(gigabytes ? "unit_abbr_gigabyte" : "unit_abbr_megabyte"));
}

std::string CameraValuesFormatter::formatSpotStarsShutterSpeed(float seconds, bool showDecimals) {
  return numberWithAtMost(showDecimals ? 2 : 0, seconds) + commonText("unit_abbr_second");
}

std::string CameraValuesFormatter::formatShutterSpeed(float seconds, bool round, int useDecimals) {
  if (!std::isfinite(seconds) || seconds < 0) return kNoValueText;
  std::string zero = "0" + commonText("unit_abbr_second");
  if (seconds == 0) return zero;
  if (round) {
    const auto ladder = ShutterSpeed::standardShutterSpeeds();
    const ShutterSpeed nearest = ShutterSpeed::findNearestShutterSpeedOfValue(seconds, ladder);
    if (std::abs(nearest.value - seconds) < 1) {
      const std::string number = nearest.text.substr(0, nearest.text.find('"'));
      return number + commonText("unit_abbr_second");
    }
  }
  const int decimals = round ? 0 : useDecimals;
  const Clock clock = clockOf(seconds, decimals, false);
  std::string text;
  append(text, clock.hours, 0, commonText("unit_abbr_hour"));
  append(text, clock.minutes, 0, commonText("unit_abbr_minute"));
  append(text, clock.seconds, decimals, commonText("unit_abbr_second"));
  return text.empty() ? zero : text;
}

std::string CameraValuesFormatter::formatTimeDuration(double seconds, bool showDays,
                                                      bool withLongUnits) {
  if (!std::isfinite(seconds) || seconds < 0) return kNoValueText;
  const Clock clock = clockOf(seconds, 0, showDays);
  std::string text;
  append(text, clock.days, 0, commonText("unit_abbr_day"));
  append(text, clock.hours, 0, commonText("unit_abbr_hour"));
  append(text, clock.minutes, 0, withLongUnits ? commonText("unit_abbr_minute") : "'");
  append(text, clock.seconds, 0, withLongUnits ? commonText("unit_abbr_second") : "\"");
  return text;
}

}  // namespace zenivo
