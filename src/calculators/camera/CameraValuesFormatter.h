// The values of the calculators as text.

#pragma once

#include <string>

#include "calculators/camera/DistanceUnits.h"

namespace zenivo {

/// Writes photographic values as photographers read them.  Numbers are rounded half
/// up, fraction digits are not padded with zeros unless said.  A value that does
/// not exist (not-a-number; an infinite or negative duration) is "--".
class CameraValuesFormatter {
 public:
  /// Distances are written in these units.
  explicit CameraValuesFormatter(UnitSystem units) : units_(units) {}

  /// Metres as millimetres with at most one decimal: "35 mm".
  static std::string formatFocalLength(float metres, bool showUnits = true,
                                       bool usesGroupingSeparator = false);

  /// "f/11" from 10 on, up to one decimal from 1 on ("f/2.8"), two below ("f/0.95").
  static std::string formatAperture(double fstop);
  /// With up to `decimalPlaces` decimals.
  static std::string formatAperture(double fstop, int decimalPlaces);

  /// Metres, with at most two decimals ("2.5 m", from 1000 m on "1.2 km"), or as feet
  /// and inches (8' 2"), these whole or, with `withFraction`, to the nearest 1/32
  /// (8' 2 7/16").  Without `showUnits` metric distances stay metres; feet and inches
  /// keep their marks.  An infinite distance, which is any below 0, is "∞".
  std::string formatDistance(float metres, bool showUnits = true, bool withFraction = false) const;

  /// The distance, and in parentheses how many percent of `whole` it is; that is left
  /// out where `whole` is not above 0 or the distance is infinite.
  std::string formatDistanceWithPercentageOf(float metres, float whole) const;

  /// "1.4x"; "--" for 1, that is for none.
  static std::string formatTeleconverter(float factor);

  /// Millimetres with exactly three decimals: "0.030 mm".
  static std::string formatCoC(float millimetres);

  /// Metres: "2 m x 3 m".
  std::string formatSizeWithWidth(float width, float height) const;

  /// Degrees with exactly two decimals: "46.79°".
  static std::string formatAngle(float degrees);

  /// An exposure value with its sign and up to two decimals ("+12.34"), or rounded
  /// to the nearest whole, third or half ("+12 ⅓").  Zero has no sign.
  static std::string formatEV(float ev, bool roundValue);

  /// Seconds.  With `round` a speed within a second of one on the dial takes its text
  /// ("1/250s"), others lose their fraction; otherwise the seconds have up to
  /// `useDecimals` decimals: "1h 2min 3.5s".  Seconds that round to 60 make a minute.
  static std::string formatShutterSpeed(float seconds, bool round = true, int useDecimals = 1);

  /// Seconds, to the nearest whole one, in days (if asked for), hours, minutes and
  /// seconds that are not zero: "1h 2min 3s", or with short units 1h 2' 3".  Empty
  /// for 0.
  static std::string formatTimeDuration(double seconds, bool showDays, bool withLongUnits);

  /// The nearest sensitivity on the ladder: "400".
  static std::string formatISO(float iso);

  /// The nearest filter with the fraction added: "6 stops", "9 ⅓ stops"; "--" for
  /// no filter.
  static std::string formatFilterWithValue(float stops, float fraction);

  /// "25 fps".
  static std::string formatFps(double fps);

  /// Exactly two decimals; above 1024 MB in GB.
  static std::string formatMB(double megabytes);

  /// Seconds as they come, an infinity too, with up to two decimals or none: "12.5s".
  static std::string formatSpotStarsShutterSpeed(float seconds, bool showDecimals);

 private:
  std::string formatFeetAndInches(float metres, bool withFraction) const;

  UnitSystem units_;
};

}  // namespace zenivo
