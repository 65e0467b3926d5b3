#include "engine/Frame.h"

#include <cmath>

#include "engine/SiderealTime.h"
#include "time/Mjd.h"

namespace zenivo::ephemeris {

Frame frameAt(double mjd, double deltaT) {
  constexpr double kHoursPerRadian = 3.8197186342054885;  // 12/pi, the last digit as rounded once
  Frame frame;
  frame.mjd = mjd;
  frame.T = julianCenturies(mjd + deltaT);
  frame.obliquity = meanObliquity(frame.T);
  frame.cosObliquity = std::cos(frame.obliquity);
  frame.sinObliquity = std::sin(frame.obliquity);
  frame.nutation = nutationAt(frame.T);
  frame.equationOfEquinoxes = frame.nutation.longitude *
                              std::cos(frame.obliquity + frame.nutation.obliquity) *
                              kHoursPerRadian;
  frame.siderealTime = greenwichSiderealTime(mjd) + frame.equationOfEquinoxes;
  return frame;
}

// Turned about the x axis, on which both equinoxes lie.
Vector3D meanEquatorial(const Frame& frame, const Vector3D& ecliptic) {
  const double c = frame.cosObliquity, s = frame.sinObliquity;
  return {ecliptic.x(), c * ecliptic.y() - s * ecliptic.z(), s * ecliptic.y() + c * ecliptic.z()};
}

Vector3D trueEquatorial(const Frame& frame, const Vector3D& meanEquatorial) {
  return frame.nutation.matrix * meanEquatorial;
}

}  // namespace zenivo::ephemeris
