// Equations of the fourth degree.

#pragma once

#include <array>

namespace zenivo {

/// The four roots of a quartic: place i of both arrays makes one root.
struct QuarticRoots {
  std::array<double, 4> real{};
  std::array<double, 4> imaginary{};
  int realCount = 0;  ///< roots whose imaginary part is 0; 0 also when unsolvable
};

/// Solves c[0] + c[1] y + c[2] y^2 + c[3] y^3 + c[4] y^4 = 0 by Ferrari's method.
/// Without a fourth power (c[4] is 0) nothing is solved and no root is real.
/// Error: simple roots of like size to 2e-11 of themselves (1e6 quartics with two real roots of
/// 0.1 to 10 and a complex pair).
/// Special cases: a double root may come out as a complex pair with a tiny imaginary part.
/// Source: Cardano, Ars Magna (1545), ch. 39; Abramowitz & Stegun, 3.8.3.
QuarticRoots solveQuartic(const std::array<double, 5>& c);

}  // namespace zenivo
