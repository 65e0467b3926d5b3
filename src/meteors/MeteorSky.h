// What the sky leaves of the meteors, at one moment and for all showers alike.

#pragma once

#include "meteors/MeteorMoment.h"
#include "meteors/MeteorShower.h"
#include "meteors/SkyBrightness.h"

namespace zenivo {

namespace ephemeris {
class PtSun;
class PtMoon;
}  // namespace ephemeris

struct MeteorSky {
  double mjd = 0;
  double deltaT = 0;             ///< days
  double solarLongitude = 0;     ///< degrees, J2000.0
  double limitingMagnitude = 0;  ///< in the zenith
  double limitingMagnitudeWithNoMoon = 0;
  double moonElevation = 0;  ///< degrees
};

/// Computes the sky of one place in one month.  The air is always the same: 40 % humid
/// and 15 degrees Celsius.
class MeteorSkyModel {
 public:
  MeteorSkyModel(const ZVLocation& location, std::int64_t year, int month);

  /// The sky at a moment, from the full series of both bodies, which are left there.
  MeteorSky skyAt(double mjd, double deltaT, ephemeris::PtSun& sun, ephemeris::PtMoon& moon) const;

 private:
  SkyModel model_;
};

/// Meteors per hour of one shower, with the Moon as it is and without it.
struct MeteorRates {
  double rate = 0;
  double rateWithNoMoon = 0;
};

/// Leaves the shower's radiant at that moment.
MeteorRates ratesOfShower(MeteorShower& shower, const MeteorSky& sky);

}  // namespace zenivo
