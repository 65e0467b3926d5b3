// Where a parabola through three samples crosses zero.

#pragma once

namespace zenivo::ephemeris {

/// The parabola through the values at x = -1, 0 and 1.
struct QuadraticRoots {
  int count = 0;     ///< roots within -1 to 1: 0, 1 (root1) or 2
  double root1 = 0;  ///< root1 < root2
  double root2 = 0;
  double extremeValue = 0;  ///< of the parabola, inside the interval or not
};

/// Error: rounding.
/// Special cases: three values on a line give its one root; values that are not numbers, or
/// are all the same, none.
/// Source: Montenbruck & Pfleger, Astronomy on the Personal Computer, chapter 3.
QuadraticRoots quadraticRoots(double yMinus, double y0, double yPlus);

}  // namespace zenivo::ephemeris
