#include "meteors/SkyBrightness.h"

#include <algorithm>
#include <cmath>

#include "engine/Angles.h"

namespace zenivo {
namespace {

struct BandConstants {
  double wavelength;  ///< micrometres
  double zeroPoint;   ///< magnitudes
  double ozone;       ///< extinction of a vertical path, magnitudes
  double water;       ///< the same
  double darkSky;     ///< brightness of a moonless sky, erg/s/cm2/um/arcsec2
  double moonColour;  ///< magnitudes against V
  double sun;         ///< magnitude
};

constexpr std::array<BandConstants, 5> kBandConstants{{
    {0.365, -10.93, 0.0, 0.074, 8e-14, 1.36, -25.96},  // U
    {0.44, -10.45, 0.0, 0.045, 7e-14, 0.91, -26.09},   // B
    {0.55, -11.05, 0.031, 0.031, 1e-13, 0.0, -26.74},  // V
    {0.7, -11.9, 0.008, 0.02, 1e-13, -0.76, -27.26},   // R
    {0.9, -12.7, 0.0, 0.015, 3e-13, -1.17, -27.55},    // I
}};

constexpr double kAstronomicalDusk = -18.0 * kDegree;
constexpr double kZenithAirMass = 0.9999995824576546;   // 1 / (1 + 0.025 e^-11)
constexpr double kZenithGasMass = 0.9999992124581687;   // 1 / (1 + 0.0286 e^-10.5)
constexpr double kZenithDustMass = 0.9999999999997184;  // 1 / (1 + 0.0123 e^-24.5)
/// Light scattered from an angle of r degrees away is
///   10^(6.15 - r / 40) + 6.2e7 / r^2 + 10^5.36 (1.06 + cos^2 r):
/// haze close to the source, its aureole, and the air's own scattering.  Taken at 180
/// degrees for the Sun and the Moon alike, as the rest of the model is for the zenith.
constexpr double kScattering = 473876.98507629026;
constexpr double kMultipleScattering = 440000.0;  // from all sides, once per extinction

/// Flux ratio of a difference in magnitudes.
double dimmed(double magnitudes) {
  return std::pow(10.0, -0.4 * magnitudes);
}

double zenithDistance(double azimuth, double elevation) {
  constexpr double kCosineOfZenith = 6.123233995736766e-17;  // cos(pi / 2) as a double
  return std::acos(std::sin(elevation) + std::cos(elevation) * std::cos(azimuth) * kCosineOfZenith);
}

/// 1 / cos z, which a term that counts near the horizon keeps finite: 40 on it.
double airMass(double zenithDistance) {
  constexpr double kBelowTheHorizon = 40.0;
  if (zenithDistance > kPi / 2.0) return kBelowTheHorizon;
  const double cosine = std::cos(zenithDistance);
  return 1.0 / (cosine + 0.025 * std::exp(-11.0 * cosine));
}

/// What a light of that much extinction along its way leaves in the scattered sky.
double scattered(double transmitted) {
  return kScattering * transmitted + kMultipleScattering * (1.0 - transmitted);
}

/// From -12.73 when full, the phase angle in degrees: the opposition surge is left out.
double moonMagnitude(double phaseIllumination) {
  const double phaseAngle = std::abs((1.0 - phaseIllumination) * 180.0);
  return -12.73 + 0.026 * phaseAngle + 4e-9 * std::pow(phaseAngle, 4.0);
}

}  // namespace

// Extinction is the sum of four, each in magnitudes per air mass:
//   air molecules   0.1066 e^(-H/8200) u^-4          u: wavelength over that of V
//   dust            0.1 e^(-H/1500) u^-1.3, more in humid air, more in summer
//   ozone           a band's, with latitude and season
//   water vapour    a band's, with humidity and temperature, e^(-H/8200)
// H is the height in metres.  Summer is where sin(season) has the sign of the latitude.
SkyModel::SkyModel(std::int64_t year, int month, const ZVLocation& location,
                   double relativeHumidity, double airTemperature)
    : solarCycle_(1.0 + 0.3 * std::cos(static_cast<double>(year - 1992) * 6.283 / 11.0)) {
  double latitude = location.coordinate.latitude * kDegree;
  if (latitude == 0.0) latitude = 1e-12;
  const double hemisphere = latitude / std::abs(latitude);
  const double height = location.verticalAccuracy > 0 ? std::max(location.altitude, 0.0) : 0.0;
  const double season = (month - 3) * 30.0 * kDegree;
  const double humidity = relativeHumidity / 100.0;
  const double thinAir = std::exp(-height / 8200.0);
  const double aerosols = 0.1 * std::exp(-height / 1500.0) *
                          std::pow(1.0 - 0.32 / std::log(humidity), 4.0 / 3.0) *
                          (1.0 + hemisphere * std::sin(season));
  const double ozone = (3.0 + 0.4 * (latitude * std::cos(season) - std::cos(3.0 * latitude))) / 3.0;
  const double water = 0.94 * humidity * std::exp(airTemperature / 15.0) * thinAir;
  for (std::size_t i = 0; i < kBands; ++i) {
    const BandConstants& band = kBandConstants[i];
    const double u = band.wavelength / 0.55;
    const double rayleigh = 0.1066 * thinAir * std::pow(u, -4.0);
    const double aerosol = aerosols * std::pow(u, -1.3);
    extinction_[i] = rayleigh + aerosol + band.ozone * ozone + band.water * water;
    zenithLoss_[i] = rayleigh * kZenithGasMass + aerosol * kZenithDustMass + band.ozone * ozone +
                     band.water * water * kZenithGasMass;
  }
}

// A light of magnitude m in a band with zero point m0 arrives as 10^(-0.4 (m - m0 + 43.27)),
// is dimmed by 10^(-0.4 K X) along its X air masses, and of what comes from the side the air
// over the observer throws down the part 1 - 10^(-0.4 K) that it takes out.  By day and by
// moonlight that is all; in twilight, with the Sun below the horizon, the glow loses a
// magnitude a degree instead, and falls off as 100 / r, r again 180 degrees.  The
// darker of day and twilight is the one that holds.  Below it lies the glow of the dark sky,
// which breathes with the Sun's activity.
double SkyModel::zenithBrightness(SkyBand skyBand, const SkyLights& lights) const {
  constexpr double kUnit = 1e12;
  const auto i = static_cast<std::size_t>(skyBand);
  const BandConstants& band = kBandConstants[i];
  const double moonZenithDistance = zenithDistance(lights.moonAzimuth, lights.moonElevation);
  const double sunAirMass = airMass(zenithDistance(lights.sunAzimuth, lights.sunElevation));

  const double transmitted = dimmed(extinction_[i] * kZenithAirMass);
  const double twilight = dimmed(band.sun - band.zeroPoint + 32.5 - lights.sunElevation / kDegree) *
                          (100.0 / 180.0) * (1.0 - transmitted);
  const double daylight = dimmed(band.sun - band.zeroPoint + 43.27) * (1.0 - transmitted) *
                          scattered(dimmed(extinction_[i] * sunAirMass));
  double brightness = std::min(daylight, twilight) + solarCycle_ * band.darkSky * transmitted;
  if (moonZenithDistance < kPi / 2.0) {
    const double moon =
        dimmed(moonMagnitude(lights.phaseIllumination) + band.moonColour - band.zeroPoint + 43.27);
    brightness += (1.0 - transmitted) * moon *
                  scattered(dimmed(extinction_[i] * airMass(moonZenithDistance)));
  }
  return brightness * kUnit;
}

// Hecht's formula for the threshold of the eye, in footcandles, on a background of B
// nanolamberts: c1 (1 + sqrt(c2 B))^2, once for rods and once for cones.
double SkyModel::limitingMagnitude(const SkyLights& lights) const {
  constexpr double kUnitsPerNanolambert = 0.00111;
  constexpr double kSunMagnitude = -26.74;
  constexpr double kRodVisionBelow = 1500.0;  // nanolamberts
  if (lights.sunElevation < kAstronomicalDusk && lights.moonElevation < 0.0) {
    return kDarkSkyMagnitude;
  }
  const double nanolamberts = zenithBrightness(SkyBand::V, lights) / kUnitsPerNanolambert;
  if (nanolamberts < 0.0) return kSunMagnitude;
  const bool rods = nanolamberts < kRodVisionBelow;
  // 10^-9.8 and 10^-1.9; 10^-8.35 and 10^-5.9.
  const double c1 = rods ? 1.584893192461111e-10 : 4.4668256362516596e-09;
  const double c2 = rods ? 0.012589254117941675 : 1.2589254117941661e-06;
  const double threshold = c1 * std::pow(1.0 + std::sqrt(c2 * nanolamberts), 2.0);
  const double loss = zenithLoss_[static_cast<std::size_t>(SkyBand::V)];
  return std::min(-2.5 * std::log10(threshold) - 16.57 - loss, kDarkSkyMagnitude);
}

double calculateLimitingMagnitudeWithYear(std::int64_t year, int month, const ZVLocation& location,
                                          const SkyLights& lights, double relativeHumidity,
                                          double airTemperature) {
  return SkyModel(year, month, location, relativeHumidity, airTemperature)
      .limitingMagnitude(lights);
}

}  // namespace zenivo
