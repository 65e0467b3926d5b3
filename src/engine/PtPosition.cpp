#include "engine/PtPosition.h"

#include <cmath>

#include "engine/Angles.h"

namespace zenivo {

PtPosition::PtPosition(double latitude, double longitude, double altitude,
                       double heightAboveHorizon)
    : latitude_(latitude),
      longitude_(longitude),
      altitude_(altitude),
      heightAboveHorizon_(heightAboveHorizon) {
  // An ellipse of half-axes 1 and k has the points (cos u, k sin u).  Its normal there
  // climbs by the geodetic latitude phi with tan phi = tan u / k, and along the normal
  // the altitude is added.
  constexpr double kAxisRatio = 0.99664719;        // 1 - 1/298.257
  constexpr double kEquatorialRadius = 6378137.0;  // metres
  const double phi = latitude * kDegree;
  const double u = std::atan(std::tan(phi) * kAxisRatio);
  const double a = altitude / kEquatorialRadius;
  rhoSinPhi_ = kAxisRatio * std::sin(u) + a * std::sin(phi);
  rhoCosPhi_ = std::cos(u) + a * std::cos(phi);
  rho_ = std::sqrt(rhoSinPhi_ * rhoSinPhi_ + rhoCosPhi_ * rhoCosPhi_);
}

}  // namespace zenivo
