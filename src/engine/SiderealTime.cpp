#include "engine/SiderealTime.h"

#include <cmath>

#include "time/Mjd.h"

namespace zenivo {

// At 0h UT of the day that is t centuries from J2000.0 sidereal time is 6h 41m 50.54841s and
// 8640184.812866 s t + ..., in hours here; in the course of a day it gains the 1.0027379093
// of a sidereal day over a solar one.  The centuries are of the midnight, so that the rate
// of the day is not counted twice.
double greenwichSiderealTime(double mjd) {
  const double midnight = std::trunc(mjd);
  const double t = julianCenturies(midnight);
  const double ut = (mjd - midnight) * 24.0;
  const double gmst = 6.697374558 + 1.0027379093 * ut +
                      t * (8640184.812866 + t * (0.093104 - 0.0000062 * t)) / 3600.0;
  double hours = gmst - std::floor(gmst / 24.0) * 24.0;
  if (hours < 0.0) hours += 24.0;
  return hours >= 24.0 ? 0.0 : hours;  // a hair below a whole day rounds to 24
}

}  // namespace zenivo
