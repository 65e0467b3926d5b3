#include "calculators/models/QuarticSolver.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace zenivo {
namespace {

constexpr double kNoRealRoot = -1e99;

/// Largest real root of a m^3 + b m^2 + c m + d, kNoRealRoot when there is none.
double largestCubicRoot(double a, double b, double c, double d) {
  // With m = u - b/3a the cubic becomes u^3 + 3 P u - 2 Q.  Put u = t - P/t: then
  // t^3 = Q +- sqrt(Q^2 + P^3) (Cardano).  Where that root is imaginary all three u are real,
  // u = 2 r cos(phi + 2 k pi/3) with r^2 = -P and cos 3 phi = Q / r^3; k = 0 is the largest.
  const double shift = b / (3 * a);
  const double P = c / (3 * a) - shift * shift;
  const double Q = shift * (c / (2 * a) - shift * shift) - d / (2 * a);
  const double discriminant = Q * Q + P * P * P;
  double u = kNoRealRoot;
  if (discriminant >= 0) {
    // One real root; of the two cube roots take the one without cancellation.
    const double t = std::cbrt(Q + std::copysign(std::sqrt(discriminant), Q));
    u = t == 0 ? 0 : t - P / t;
  } else if (discriminant < 0) {
    const double r = std::sqrt(-P);
    u = 2 * r * std::cos(std::acos(std::clamp(Q / (r * r * r), -1.0, 1.0)) / 3);
  }
  return u == kNoRealRoot ? kNoRealRoot : u - shift;
}

/// Writes the roots of z^2 + b z + c, each less `shift`, into two places.
void solveQuadratic(double b, double c, double shift, std::size_t first, QuarticRoots& roots) {
  const double discriminant = b * b / 4 - c;
  if (discriminant < 0) {
    const double imaginary = std::sqrt(-discriminant);
    roots.real[first] = roots.real[first + 1] = -b / 2 - shift;
    roots.imaginary[first] = imaginary;
    roots.imaginary[first + 1] = -imaginary;
    return;
  }
  const double larger = -(b / 2 + std::copysign(std::sqrt(discriminant), b));
  roots.real[first] = larger - shift;
  roots.real[first + 1] = (larger == 0 ? 0 : c / larger) - shift;
  roots.realCount += 2;
}

}  // namespace

QuarticRoots solveQuartic(const std::array<double, 5>& c) {
  QuarticRoots roots;
  if (c[4] == 0) return roots;

  // y = z - shift gives z^4 + p z^2 + q z + r.
  const double b3 = c[3] / c[4], b2 = c[2] / c[4], b1 = c[1] / c[4], b0 = c[0] / c[4];
  const double shift = b3 / 4;
  const double square = shift * shift;
  const double p = b2 - 6 * square;
  const double q = b1 - 2 * b2 * shift + 8 * square * shift;
  const double r = b0 - b1 * shift + b2 * square - 3 * square * square;

  // (z^2 + m)^2 = (2m - p) z^2 - q z + m^2 - r, where m makes the right side the
  // square of w z - k with 2 w k = q.  Whichever of w and k loses less to cancellation
  // gives the other.
  const double m = largestCubicRoot(8, -4 * p, -8 * r, 4 * p * r - q * q);
  if (m == kNoRealRoot) return roots;
  const double ww = std::max(0.0, 2 * m - p);
  const double kk = std::max(0.0, m * m - r);
  double w = std::sqrt(ww);
  double k = std::copysign(std::sqrt(kk), q);
  if (ww * (m * m + std::abs(r)) >= kk * (2 * std::abs(m) + std::abs(p))) {
    if (w != 0) k = q / (2 * w);
  } else {
    w = q / (2 * k);
  }
  solveQuadratic(-w, m + k, shift, 0, roots);
  solveQuadratic(w, m - k, shift, 2, roots);
  return roots;
}

}  // namespace zenivo
