// Photographic values as photographers type them.

#pragma once

#include <optional>
#include <string_view>

#include "calculators/camera/DistanceUnits.h"

namespace zenivo {

/// A neutral density filter: whole stops as on the ladder, and a fraction beside them.
struct FilterValue {
  float stops = 0;
  float fraction = 0;
};

/// Reads values; everything that CameraValuesFormatter writes reads back to the value
/// shown.  Blanks count nothing, letters may be small or capital, decimals may stand behind
/// a comma ("3,5", but not "3,500", which may be thousands), a value has no sign unless said.  The
/// whole text must be the value, else the answer is nullopt.
struct CameraValuesParser {
  /// Metres, from "35mm", "35" (millimetres too), "5 cm" or "0.6 m".  Above 0.
  static std::optional<float> parseFocalLength(std::string_view text);

  /// From "f/2.8", "f2.8", "ƒ/2.8", "1:2.8" or "2.8".  Above 0.
  static std::optional<float> parseAperture(std::string_view text);

  /// Seconds, from "1/250", "1/250s", "2.5", "30s", 30", "1h 2min 3.5s" or "∞s".
  static std::optional<float> parseShutterSpeed(std::string_view text);

  /// Metres, from "3m", "250 cm", "10ft", 5'6", 5' 6 1/2", "8 in", "10yd" or "1.2 km"; a bare
  /// number is in metres or feet.  "∞" or "inf" is -1.
  static std::optional<float> parseDistance(std::string_view text, UnitSystem units);

  /// Seconds, from "2d 3h 5min 6s", 3h 5' 6", "2h30", "1m30", "90" or "1:30:00".
  static std::optional<double> parseTimeDuration(std::string_view text);

  /// Degrees, with an optional sign, from "46.8°", "-12.5" or "30 deg".
  static std::optional<float> parseAngle(std::string_view text);

  /// From "400" or "ISO 400".  Above 0.
  static std::optional<float> parseISO(std::string_view text);

  /// From "1.4x" or "2"; "--" is 1.  Above 0.
  static std::optional<float> parseTeleconverter(std::string_view text);

  /// From "6 stops", "9 1/3", "9 ⅓ stops" or a name it is sold under, the factor or, with a
  /// decimal point, the density behind ND ("ND64", "ND1000", "ND1.8"); several behind each
  /// other with + ("ND64+ND8").  "--" and "none" are none.
  static std::optional<FilterValue> parseFilter(std::string_view text);
  /// Whether the text is a bare decimal number that filters also bear as their density, 0.3 a
  /// stop: "0.9".
  static bool mayBeDensity(std::string_view text);

  /// Stops, with an optional sign, from "+12.34", "-6" or "+12 ⅓".
  static std::optional<float> parseEV(std::string_view text);

  /// Millimetres, from "0.030 mm" or "0.03".  Above 0.
  static std::optional<float> parseCoC(std::string_view text);

  /// Megabytes, from "24 MB", "1.5GB" or "24".  Above 0.
  static std::optional<double> parseMB(std::string_view text);

  /// Frames a second, from "25" or "25 fps".  Above 0.
  static std::optional<double> parseFps(std::string_view text);
};

}  // namespace zenivo
