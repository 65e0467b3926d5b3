// How bright the sky is, and which stars it leaves to the eye.
//
// Error: half a magnitude of the limit by night and one by day, against what observers report
// (under a full and a half Moon, at sunset, at noon).
// Special cases: from the moment both lights are down (the Sun at -18 degrees) the limit is
// 6.4 whatever the brightness says; without a known altitude the place is at sea level.
// Source: B. E. Schaefer, "To the Visual Limits", Sky & Telescope 95-5 (1998) 57, and
// Krisciunas & Schaefer, PASP 103 (1991) 1033, for a point at the zenith.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "place/ZVLocation.h"

namespace zenivo {

/// The limiting magnitude of the darkest sky.
inline constexpr double kDarkSkyMagnitude = 6.4;

/// Where the lights of the sky stand.  Angles are radians, elevations with refraction.
struct SkyLights {
  double sunAzimuth = 0;
  double sunElevation = 0;
  double moonAzimuth = 0;
  double moonElevation = 0;
  double phaseIllumination = 0;  ///< illuminated fraction of the Moon, 0 to 1
};

enum class SkyBand : std::size_t { U, B, V, R, I };

/// The air over a place in one month, and the glow of the sky in one year.
class SkyModel {
 public:
  /// Relative humidity in percent, above 0 and below 100; air temperature in degrees
  /// Celsius.  The place's altitude counts where its accuracy is known.
  SkyModel(std::int64_t year, int month, const ZVLocation& location, double relativeHumidity,
           double airTemperature);

  /// Brightness of the zenith in a band, 1e-12 erg/s/cm2/um/arcsec2.
  double zenithBrightness(SkyBand band, const SkyLights& lights) const;

  /// Magnitude of the faintest star that is seen in the zenith: at most 6.4, and just
  /// that when the Sun is 18 degrees down and the Moon is down; negative by day.  It
  /// never rises with the elevation of the Sun or the Moon, but it jumps where the Moon
  /// crosses the horizon and where that darkness begins.
  double limitingMagnitude(const SkyLights& lights) const;

 private:
  static constexpr std::size_t kBands = 5;

  std::array<double, kBands> extinction_{};  ///< magnitudes per air mass
  std::array<double, kBands> zenithLoss_{};  ///< magnitudes
  double solarCycle_;
};

/// The limiting magnitude at one moment; see SkyModel.
double calculateLimitingMagnitudeWithYear(std::int64_t year, int month, const ZVLocation& location,
                                          const SkyLights& lights, double relativeHumidity,
                                          double airTemperature);

}  // namespace zenivo
