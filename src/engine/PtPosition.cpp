#include "engine/PtPosition.h"

#include <cmath>

#include "engine/Angles.h"

namespace zenivo {

PtPosition::PtPosition(double theLatitude, double theLongitude, double theAltitude,
                       double theHeightAboveHorizon)
    : latitude(theLatitude),
      longitude(theLongitude),
      altitude(theAltitude),
      heightAboveHorizon(theHeightAboveHorizon) {
  constexpr double kAxisRatio = 0.99664719;
  constexpr double kEquatorialRadius = 6378137.0;  // metres
  const double phi = latitude * kDegree;
  const double u = std::atan(std::tan(phi) * kAxisRatio);
  const double a = altitude / kEquatorialRadius;
  rhoSinPhi = kAxisRatio * std::sin(u) + a * std::sin(phi);
  rhoCosPhi = std::cos(u) + a * std::cos(phi);
  rho = std::sqrt(rhoSinPhi * rhoSinPhi + rhoCosPhi * rhoCosPhi);
}

}  // namespace zenivo
