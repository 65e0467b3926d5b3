#include "commands/common/Words.h"

#include <array>

#include "foundation/LocalizedString.h"
#include "foundation/NumberFormatter.h"

namespace zenivo::cli {

std::string phaseName(std::int32_t phase) {
  // In the order of the phase codes.
  constexpr std::array kKeys{"moon_phase_new_moon",        "moon_phase_first_quarter",
                             "moon_phase_full_moon",       "moon_phase_last_quarter",
                             "moon_phase_waxing_crescent", "moon_phase_waxing_gibbous",
                             "moon_phase_waning_gibbous",  "moon_phase_waning_crescent"};
  if (phase < 0 || static_cast<std::size_t>(phase) >= kKeys.size()) return {};
  return localizedString(kKeys.at(static_cast<std::size_t>(phase)), "Ephemeris");
}

std::string degrees(double angle, int digits) {
  const NumberFormatter formatter{.minimumFractionDigits = digits, .maximumFractionDigits = digits};
  return formatter.stringFromNumber(angle) + "°";
}

std::string bearing(double azimuth, int digits) {
  const std::string text = degrees(azimuth, digits);
  return text == degrees(360, digits) ? degrees(0, digits) : text;
}

std::string percent(double fraction) {
  return NumberFormatter{}.stringFromNumber(fraction * 100) + " %";
}

std::string kilometres(double distance) {
  return NumberFormatter{.usesGroupingSeparator = true}.stringFromNumber(distance) + " km";
}

}  // namespace zenivo::cli
