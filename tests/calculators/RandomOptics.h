// Cameras, lenses and distances for property tests.

#pragma once

#include <cmath>
#include <random>

#include "calculators/models/Dof.h"

namespace zenivo {

/// Draws what photographers have; equal seeds give equal sequences.
class RandomOptics {
 public:
  explicit RandomOptics(std::uint64_t seed) : random_(seed) {}

  /// Even over the logarithm.
  float between(double low, double high) {
    std::uniform_real_distribution<double> exponent(std::log(low), std::log(high));
    return static_cast<float>(std::exp(exponent(random_)));
  }

  bool coin() { return random_() % 2 == 0; }

  float focalLength() { return between(0.008, 0.8); }
  float circleOfConfusion() { return between(0.004, 0.06); }  // millimetres
  float teleconverter() { return coin() ? 1.0F : between(0.7, 2); }
  Aperture aperture() {
    const float N = between(1, 32);
    return {N, N};
  }

  Dof dof() {
    return {focalLength(),   aperture(),      between(1.5, 300),
            teleconverter(), teleconverter(), circleOfConfusion()};
  }

 private:
  std::mt19937_64 random_;
};

}  // namespace zenivo
