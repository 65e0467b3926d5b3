// Shutter speeds and durations as text.

#include <fmt/format.h>

#include <cmath>
#include <string>

#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/ShutterSpeed.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

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
