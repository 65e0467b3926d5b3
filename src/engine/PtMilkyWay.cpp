#include "engine/PtMilkyWay.h"

#include <cmath>

#include "engine/Angles.h"

namespace zenivo::ephemeris {
namespace {

// Galactic centre and north galactic pole.  Two digit strings stand where the product of
// degrees would round otherwise.
constexpr double kCentreRightAscension = 4.649557127312894;  // 266.4 degrees
constexpr double kCentreDeclination = -28.94 * kDegree;
constexpr double kPoleRightAscension = 3.3658674633437284;  // 192.85000005 degrees
constexpr double kPoleDeclination = 27.13 * kDegree;

/// A place of the sky as a unit vector of the horizontal frame.
Vector3D horizontalVector(const PtPolar& place) {
  return Vector3D::withPolar(place.azimuth_ * kDegree, place.elevation_ * kDegree);
}

/// Azimuth of the point of the galactic plane at `angle` from the centre, radians,
/// 0 up to 2 pi.
double azimuthInPlane(const PtMilkyWayPosition& position, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return normalizeRadians(std::atan2(c * position.gc_.y() + s * position.east_.y(),
                                     c * position.gc_.x() + s * position.east_.x()));
}

/// The signed smallest difference of two azimuths, everything in radians.
double azimuthDifference(double a, double b) {
  return angleDifference(a / kDegree, b / kDegree) * kDegree;
}

/// Finds the highest point of the plane, and on which side of it the centre is.  In single
/// precision, as all that was ever drawn.
void orientPlane(PtMilkyWayPosition& position, double poleElevation) {
  // The height in the plane is cos t gc.z + sin t east.z.  It is 0 at a, and at a
  // quarter turn on, where cos and sin are as gc.z to east.z, it is at its greatest.
  const auto a = static_cast<float>(std::atan2(-position.gc_.z(), position.east_.z()));
  const auto b = a + static_cast<float>(kPi / 2.0);
  position.gc_max_angle_azimuth_ = azimuthInPlane(position, static_cast<double>(b));
  position.gc_max_angle_ = std::abs(poleElevation);

  // The plane meets the horizon at two feet, opposite to one another.
  const double centreAzimuth = position.azimuth_ * kDegree;
  const double foot = azimuthInPlane(position, static_cast<double>(a));
  const double otherFoot = normalizeRadians(foot + kPi);
  const bool first = std::abs(azimuthDifference(foot, centreAzimuth)) <
                     std::abs(azimuthDifference(otherFoot, centreAzimuth));
  const double nearerFoot = first ? foot : otherFoot;
  const bool left = azimuthDifference(position.gc_max_angle_azimuth_, nearerFoot) < 0.0;
  position.gc_angle_ = left ? -position.gc_max_angle_ : position.gc_max_angle_;
}

}  // namespace

PtMilkyWay::PtMilkyWay(const PtPosition& observer)
    : FixedBody(observer, kCentreRightAscension, kCentreDeclination) {}

double PtMilkyWay::sinParallax(double /*distance*/) const {
  return 0.0;
}

PtPolar PtMilkyWay::refractedPlace(const Vector3D& equatorial, double siderealTime) {
  const TopocentricPosition place = topocentric(equatorial, siderealTime);
  PtPolar polar = horizontalFrom(place.hourAngle, place.declination, 1.0);
  polar.elevation_ = refractedElevation(polar.elevation_);
  return polar;
}

PtMilkyWayPosition PtMilkyWay::milkyWayPosition(double mjd, double deltaT) {
  const Frame frame = frameAt(mjd, deltaT);
  setFrame(frame);
  const auto placeOf = [&](double rightAscension, double declination) {
    return refractedPlace(trueEquatorial(frame, Vector3D::withPolar(rightAscension, declination)),
                          frame.siderealTime);
  };
  // The centre comes last: what the body keeps of the query is the centre's.
  const PtPolar pole = placeOf(kPoleRightAscension, kPoleDeclination);
  const PtPolar centre = placeOf(kCentreRightAscension, kCentreDeclination);
  setHorizontal(centre);

  PtMilkyWayPosition position;
  position.azimuth_ = centre.azimuth_;
  position.elevation_ = centre.elevation_;
  position.gc_ = horizontalVector(centre);
  position.east_ = position.gc_.cross(horizontalVector(pole));
  orientPlane(position, pole.elevation_ * kDegree);
  return position;
}

VisibilityWindow PtMilkyWay::visibilityWindow(double dusk, double dawn, double deltaT) {
  VisibilityWindow window;
  if (!drawEventAtMjd(dusk)) return window;
  const RiseSet riseAndSet = riseSet(EventKind::riseSet, dusk, deltaT);
  window.rise = riseAndSet.rise;
  window.set = riseAndSet.set;
  if (mjdIsBefore(dawn, window.rise) && mjdIsBefore(window.rise, window.set)) {
    // It rises after dawn, and was not up before.
    window.rise = kAlwaysBelow;
    window.set = kAlwaysBelow;
  }
  if (mjdIsBefore(window.set, window.rise)) window.rise = dusk;  // up at the start

  if (!drawEventAtMjd(dawn) || window.rise == kAlwaysBelow) return window;
  if (window.rise == kAlwaysAbove) {
    window.from = dusk;
    window.to = dawn;
    return window;
  }
  if (mjdIsBefore(dawn, window.rise)) return window;
  window.from = window.rise;
  window.to = mjdIsBefore(dawn, window.set) ? dawn : window.set;
  return window;
}

}  // namespace zenivo::ephemeris
