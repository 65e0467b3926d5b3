#include "engine/PtMoon.h"

#include <cmath>

#include "engine/Angles.h"
#include "engine/LunarSeries.h"

namespace zenivo::ephemeris {

Vector3D PtMoon::eclipticPosition(bool highPrecision, double T) {
  return highPrecision ? fullLunarSeries(T) : fastLunarSeries(T);
}

double PtMoon::sinParallax(double distance) const {
  return 6378.137 / distance;
}

double PtMoon::semiDiameter(double sinParallax, double) const {
  constexpr double kRadiusOverEarths = 1738.0 / 6378.137;
  return std::asin(kRadiusOverEarths * sinParallax) / kDegree;
}

}  // namespace zenivo::ephemeris
