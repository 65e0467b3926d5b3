// Points of the unit circle, with which series take the multiples of an angle.

#pragma once

#include <array>
#include <cmath>
#include <cstddef>

#include "engine/Angles.h"

namespace zenivo::ephemeris {

/// Two doubles that are added and multiplied side by side, each as it would be alone.
/// (A vector of g++ and clang; it halves the code of the series, which otherwise does
/// not fit the instruction cache for Sun and Moon together.)
using Pair = double __attribute__((vector_size(16)));

inline Pair swapped(Pair a) {
  return __builtin_shufflevector(a, a, 1, 0);
}

/// cos and sin of an angle (times a factor, where a series wants one).  Products
/// add angles: the addition theorems as a complex multiplication.
class Phasor {
 public:
  Phasor() = default;
  Phasor(double x, double y) : xy_{x, y} {}

  double x() const { return xy_[0]; }
  double y() const { return xy_[1]; }

  /// {a.x b.x - a.y b.y, a.y b.x + a.x b.y}
  friend Phasor operator*(const Phasor& a, const Phasor& b) {
    const Pair bx{b.x(), b.x()}, by{-b.y(), b.y()};
    return Phasor(a.xy_ * bx + swapped(a.xy_) * by);
  }
  friend Phasor operator*(double factor, const Phasor& a) {
    return Phasor(Pair{factor, factor} * a.xy_);
  }
  /// The negative angle.
  Phasor conjugate() const { return {x(), -y()}; }

 private:
  explicit Phasor(Pair xy) : xy_(xy) {}

  Pair xy_{1, 0};
};

inline Phasor phasor(double radians) {
  return {std::cos(radians), std::sin(radians)};
}

/// The multiples 0 to kTop of an angle, each the one before times the first.
template <int kTop>
class Multiples {
 public:
  explicit Multiples(const Phasor& first) {
    powers_[1] = first;
    for (std::size_t n = 2; n <= kTop; ++n) powers_[n] = powers_[n - 1] * first;
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
