#include "meteors/MeteorSky.h"

#include "engine/Angles.h"
#include "engine/MoonPhase.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "meteors/SolarLongitude.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr double kRelativeHumidity = 40.0;  // percent
constexpr double kAirTemperature = 15.0;    // degrees Celsius
/// Where no Moon stands: 89 degrees down, and dark.
constexpr double kNoMoonElevation = -1.5533430342749532;

}  // namespace

MeteorSkyModel::MeteorSkyModel(const ZVLocation& location, std::int64_t year, int month)
    : model_(year, month, location, kRelativeHumidity, kAirTemperature) {}

MeteorSky MeteorSkyModel::skyAt(double mjd, double deltaT, ephemeris::PtSun& sun,
                                ephemeris::PtMoon& moon) const {
  // The phase's moment, too; a rate needs no principal phase looked up, and so no zone.
  const MoonPhaseResult phase =
      moonPhaseDataForMjd(mjd, deltaT, sun, moon, Date(), gmtCachedCalendar(), false);
  SkyLights lights{.sunAzimuth = sun.horizontal().azimuth_ * kDegree,
                   .sunElevation = sun.horizontal().elevation_ * kDegree,
                   .moonAzimuth = moon.horizontal().azimuth_ * kDegree,
                   .moonElevation = moon.horizontal().elevation_ * kDegree,
                   .phaseIllumination = static_cast<double>(phase.phaseIllumination)};
  MeteorSky sky{.mjd = mjd,
                .deltaT = deltaT,
                .solarLongitude = calculateSolarLongitudeForMjd(mjd),
                .limitingMagnitude = model_.limitingMagnitude(lights),
                .moonElevation = moon.horizontal().elevation_};
  lights.moonAzimuth = 0.0;
  lights.moonElevation = kNoMoonElevation;
  lights.phaseIllumination = 0.0;
  sky.limitingMagnitudeWithNoMoon = model_.limitingMagnitude(lights);
  return sky;
}

MeteorRates ratesOfShower(MeteorShower& shower, const MeteorSky& sky) {
  const PtPolar radiant = shower.radiantPositionAtMjd(sky.mjd, sky.deltaT, sky.solarLongitude);
  const auto rateAt = [&](double limitingMagnitude) {
    return shower.calculateMeteorsPerHourWithSolarLongitude(
        sky.solarLongitude, radiant.elevation_ * kDegree, limitingMagnitude);
  };
  return {.rate = rateAt(sky.limitingMagnitude),
          .rateWithNoMoon = rateAt(sky.limitingMagnitudeWithNoMoon)};
}

}  // namespace zenivo
