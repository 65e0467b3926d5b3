#include "engine/LightBands.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/Angles.h"
#include "engine/PtSun.h"
#include "foundation/LocalizedString.h"

namespace zenivo {
namespace {

struct BandLook {
  std::string_view key;
  Color color;
};

/// In the order of LightBand.
constexpr std::array<BandLook, 6> kLooks{{
    {"light_daytime", {0xFF, 0xD9, 0x3B}},
    {"twilight_golden_hour", {0xF5, 0xA6, 0x23}},
    {"twilight_blue_hour", {0x3D, 0x7B, 0xD9}},
    {"light_nautical", {0x2B, 0x4A, 0x8B}},
    {"light_astronomical", {0x1E, 0x2C, 0x57}},
    {"light_nighttime", {0x0B, 0x10, 0x26}},
}};

const BandLook& lookForSunElevation(double elevation) {
  return kLooks[static_cast<std::size_t>(lightBandForSunElevation(elevation))];
}

}  // namespace

double elevationForLight(const ephemeris::PtSun& sun) {
  const double latitude = sun.getPosition().latitude() * kDegree;
  const double declination = sun.equatorial().theta();
  const double sine = std::sin(latitude) * std::sin(declination) +
                      std::cos(latitude) * std::cos(declination) * std::cos(sun.hourAngle());
  return std::asin(std::clamp(sine, -1.0, 1.0)) / kDegree;
}

LightBand lightBandForSunElevation(double elevation) {
  if (elevation > 6.0) return LightBand::daytime;
  if (elevation > -4.0) return LightBand::goldenHour;
  if (elevation > -6.0) return LightBand::blueHour;
  if (elevation > -12.0) return LightBand::nautical;
  if (elevation > -18.0) return LightBand::astronomical;
  return LightBand::nighttime;
}

std::string_view lightTypeKeyForSunElevation(double elevation) {
  return lookForSunElevation(elevation).key;
}

std::string lightTypeForSunElevation(double elevation) {
  return localizedString(lightTypeKeyForSunElevation(elevation), "Ephemeris");
}

Color colorForSunElevation(double elevation) {
  return lookForSunElevation(elevation).color;
}

}  // namespace zenivo
