#include "eclipses/EarthShadow.h"

#include <cmath>

#include "engine/Angles.h"

namespace zenivo {

EarthShadow earthShadow(const ephemeris::PtSun& sun, const ephemeris::PtMoon& moon) {
  constexpr double kEnlargement = 1.02;
  constexpr double kMeanRadius = 0.99834;  // of the Earth, at latitude 45 degrees
  const double moonDistance = moon.equatorial().r();
  const double sunDistance = sun.equatorial().r();
  const double moonSine = moon.sinParallax(moonDistance);
  const double sunSine = sun.sinParallax(sunDistance);
  const double p = std::asin(moonSine) / kDegree;
  const double s = std::asin(sunSine) / kDegree;
  const double h = sun.semiDiameter(sunSine, sunDistance);
  return {kEnlargement * (kMeanRadius * p - h + s), kEnlargement * (kMeanRadius * p + h + s),
          moon.semiDiameter(moonSine, moonDistance)};
}

}  // namespace zenivo
