// The bands of light, by the Sun's elevation.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zenivo {

namespace ephemeris {
class PtSun;
}  // namespace ephemeris

/// From the highest to the lowest Sun.  The upper limit belongs to a band.
enum class LightBand {
  daytime,       ///< above +6 degrees
  goldenHour,    ///< above -4 up to +6
  blueHour,      ///< above -6 up to -4
  nautical,      ///< above -12 up to -6
  astronomical,  ///< above -18 up to -12
  nighttime,     ///< -18 and below
};

struct Color {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend bool operator==(const Color&, const Color&) = default;
};

/// The elevation that tells the band, of a Sun whose position is computed: as seen from the
/// Earth's centre and without refraction, like those of the twilights' begin and end.
double elevationForLight(const ephemeris::PtSun& sun);

/// All take that elevation, in degrees, a number.
LightBand lightBandForSunElevation(double elevation);

/// The band's localisation key, such as "twilight_golden_hour".
std::string_view lightTypeKeyForSunElevation(double elevation);

/// The band's name for the user, from the table "Ephemeris".
std::string lightTypeForSunElevation(double elevation);

/// The colour that stands for the band on the screen.
Color colorForSunElevation(double elevation);

}  // namespace zenivo
