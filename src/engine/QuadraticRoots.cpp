#include "engine/QuadraticRoots.h"

#include <cmath>

namespace zenivo::ephemeris {

// y = a x^2 + b x + y0 takes the values at -1, 0 and 1 with the a and b below.  Its extreme
// is at xe = -b/2a, and the roots lie as far on either side of it.
QuadraticRoots quadraticRoots(double yMinus, double y0, double yPlus) {
  const double a = (yMinus + yPlus) / 2.0 - y0;
  const double b = (yPlus - yMinus) / 2.0;
  QuadraticRoots result;
  if (a == 0.0) {  // three samples on a line
    result.root1 = -y0 / b;
    result.count = std::abs(result.root1) <= 1.0 ? 1 : 0;
    return result;
  }
  const double xe = -b / (2.0 * a);
  result.extremeValue = (a * xe + b) * xe + y0;
  const double dis = b * b - 4.0 * a * y0;
  if (dis < 0.0) return result;
  const double dx = std::sqrt(dis) / 2.0 / std::abs(a);
  result.root1 = xe - dx;
  result.root2 = xe + dx;
  const bool firstInside = std::abs(result.root1) <= 1.0;
  const bool secondInside = std::abs(result.root2) <= 1.0;
  result.count = (firstInside ? 1 : 0) + (secondInside ? 1 : 0);
  if (!firstInside && result.root1 < -1.0) result.root1 = result.root2;
  return result;
}

}  // namespace zenivo::ephemeris
