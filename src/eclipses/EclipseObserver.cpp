#include "eclipses/EclipseObserver.h"

#include <cmath>

#include "engine/Angles.h"

namespace zenivo {
namespace {

constexpr double kAxisRatio = 0.99664719;        // polar to equatorial radius
constexpr double kEquatorialRadius = 6378140.0;  // metres

}  // namespace

EclipseObserver::EclipseObserver(const PtPosition& position)
    : latitude(position.latitude() * kDegree),
      longitude(-position.longitude() * kDegree),
      altitude(position.altitude()) {
  const double u = std::atan(kAxisRatio * std::tan(latitude));
  const double height = altitude / kEquatorialRadius;
  rhoSinPhi = kAxisRatio * std::sin(u) + height * std::sin(latitude);
  rhoCosPhi = std::cos(u) + height * std::cos(latitude);
}

}  // namespace zenivo
