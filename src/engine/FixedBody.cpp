#include "engine/FixedBody.h"

namespace zenivo::ephemeris {

FixedBody::FixedBody(const PtPosition& observer, double rightAscension, double declination)
    : PtPlanet(observer), place_(Vector3D::withPolar(rightAscension, declination)) {}

void FixedBody::setPlace(double rightAscension, double declination) {
  place_ = Vector3D::withPolar(rightAscension, declination);
  forgetDaySamples();
}

Vector3D FixedBody::eclipticPosition(bool /*highPrecision*/, double /*T*/) {
  return {};
}

Vector3D FixedBody::equatorialPosition(bool /*highPrecision*/, const Frame& frame) {
  return apparentFromMean(place_, frame);
}

double FixedBody::semiDiameter(double /*sinParallax*/, double /*distance*/) const {
  return 0.0;
}

}  // namespace zenivo::ephemeris
