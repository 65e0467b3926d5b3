// Points of the unit circle, with which series take the multiples of an angle.

#pragma once

#include <array>
#include <cmath>
#include <cstddef>

#include "engine/Angles.h"

namespace zenivo::ephemeris {

/// cos and sin of an angle (times a factor, where a series wants one).  Products
/// add angles: the addition theorems as a complex multiplication.
struct Phasor {
  double x = 1;
  double y = 0;

  friend constexpr Phasor operator*(const Phasor& a, const Phasor& b) {
    return {a.x * b.x - a.y * b.y, a.y * b.x + a.x * b.y};
  }
  friend constexpr Phasor operator*(double factor, const Phasor& a) {
    return {factor * a.x, factor * a.y};
  }
  /// The negative angle.
  constexpr Phasor conjugate() const { return {x, -y}; }
};

inline Phasor phasor(double radians) {
  return {std::cos(radians), std::sin(radians)};
}

/// The multiples 0 to kTop of an angle, each the one before times the first.
template <int kTop>
class Multiples {
 public:
  explicit Multiples(const Phasor& first) {
    for (std::size_t n = 1; n <= kTop; ++n) powers_[n] = powers_[n - 1] * first;
  }

  /// The n-th multiple, n from -kTop to kTop.
  template <int n>
  Phasor get() const {
    static_assert(n >= -kTop && n <= kTop);
    if constexpr (n < 0) return get<-n>().conjugate();
    if constexpr (n >= 0) return powers_[n];
  }

 private:
  std::array<Phasor, kTop + 1> powers_{};
};

/// sin(2 pi x): the sine of an angle in revolutions.
inline double sineOfRevolutions(double x) {
  return std::sin(kTwoPi * frac(x));
}

}  // namespace zenivo::ephemeris
