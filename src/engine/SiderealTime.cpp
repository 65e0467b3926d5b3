#include "engine/SiderealTime.h"

#include <cmath>

#include "time/Mjd.h"

namespace zenivo {

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
