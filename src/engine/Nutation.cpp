#include "engine/Nutation.h"

#include <cmath>

#include "engine/Angles.h"

namespace zenivo::ephemeris {
namespace {

/// Turned about the x axis to the ecliptic, by -longitude about its pole, and about the x
/// axis back to the true equator: the three matrices multiplied out,
///
///   (1   0    0)   ( cl  sl  0)   (1   0   0)
///   (0   ct  st) * (-sl  cl  0) * (0   ce se)    cl, sl of -longitude; ct, st of minus the
///   (0  -st  ct)   (  0   0  1)   (0  -se ce)    true obliquity; ce, se of the obliquity
Matrix3D matrixOf(double longitude, double obliquity, double trueObliquity) {
  const double ce = std::cos(obliquity), se = std::sin(obliquity);
  const double ct = std::cos(-trueObliquity), st = std::sin(-trueObliquity);
  const double cl = std::cos(-longitude), sl = std::sin(-longitude);
  const double tcl = ct * cl, scl = -st * cl;
  return {{{cl, sl * ce, sl * se},
           {-(ct * sl), tcl * ce - st * se, tcl * se + st * ce},
           {st * sl, scl * ce - ct * se, scl * se + ct * ce}}};
}

}  // namespace

double meanObliquity(double T) {
  return (23.43929111 - T * (46.815 + T * (0.00059 - 0.001813 * T)) / 3600.0) * kDegree;
}

// The node N of the Moon's orbit goes round in 18.6 years, and with it the axis; the terms
// of twice the Sun's and the Moon's longitude (F - D + N and F + N) are the half-yearly and
// fortnightly nodding, that of the mean anomaly LS the yearly.  In arcseconds.
Nutation nutationAt(double T) {
  const double LS = kTwoPi * frac(0.993133 + 99.997306 * T);
  const double D = kTwoPi * frac(0.827362 + 1236.853087 * T);
  const double F = kTwoPi * frac(0.259089 + 1342.227826 * T);
  const double N = kTwoPi * frac(0.347346 - 5.372447 * T);
  const double sun = 2.0 * (F - D + N);
  const double moon = 2.0 * (F + N);
  const double psi = -17.2 * std::sin(N) - 1.319 * std::sin(sun) - 0.227 * std::sin(moon) +
                     0.206 * std::sin(2.0 * N) + 0.143 * std::sin(LS);
  const double eps = 9.203 * std::cos(N) + 0.574 * std::cos(sun) + 0.098 * std::cos(moon) -
                     0.09 * std::cos(2.0 * N);
  Nutation nutation;
  nutation.longitude = psi / kArcsecondsPerRadian;
  nutation.obliquity = eps / kArcsecondsPerRadian;
  // To this matrix a linear obliquity is near enough: it only orients a shift of
  // 20 arcseconds.
  const double obliquity = 0.4090928 - 0.00022696 * T;
  nutation.matrix = matrixOf(nutation.longitude, obliquity, obliquity + nutation.obliquity);
  return nutation;
}

}  // namespace zenivo::ephemeris
