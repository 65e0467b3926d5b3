#include "calculators/models/Exposure.h"

#include <cmath>

namespace zenivo {

Exposure::Exposure(float shutterSpeed, float iso, const Aperture& aperture, float filter,
                   float filterFraction)
    : shutterSpeed_(shutterSpeed),
      iso_(iso),
      aperture_(aperture),
      filter_(filter),
      filterFraction_(filterFraction) {}

void Exposure::calculateEV() {
  const double N = aperture_.value;
  ev_ = static_cast<float>(std::log2(N * N / shutterSpeed_) - std::log2(iso_ / 100.0));
}

void Exposure::calculateAperture(const ApertureManager& stops) {
  const double power = std::exp2(ev() + std::log2(iso_ / 100.0));
  aperture_ = stops.apertureForStop(static_cast<float>(std::sqrt(shutterSpeed_ * power)));
}

void Exposure::calculateShutterSpeed() {
  const double N = aperture_.value;
  const double power = std::exp2(ev() + std::log2(iso_ / 100.0));
  shutterSpeed_ = static_cast<float>(N * N / power);
}

void Exposure::calculateISO() {
  const double N = aperture_.value;
  iso_ = static_cast<float>(100 * std::exp2(std::log2(N * N / shutterSpeed_) - ev()));
}

}  // namespace zenivo
