#include "calculators/models/Dof.h"

#include <cmath>

namespace zenivo {
namespace {

/// Focus this near to the hyperfocal distance is focus at it.
constexpr double kHyperfocalTolerance = 0.01;

}  // namespace

Dof::Dof(float focalLength, const Aperture& aperture, float subjectDistance, float teleconverter1,
         float teleconverter2, float circleOfConfusion)
    : LensModel(focalLength, teleconverter1, teleconverter2),
      aperture_(aperture),
      subjectDistance_(subjectDistance) {
  setCircleOfConfusion(circleOfConfusion);
  calculateDOFValues();
}

float Dof::hyperfocalTerm() const {
  const double F = effectiveFocalLength();
  return static_cast<float>(F * F / apertureTimesCoc());
}

void Dof::calculateDOFValues() {
  const float F = effectiveFocalLength();
  const float s = subjectDistance_;
  const float h = hyperfocalTerm();
  hyperfocal_ = h + F;
  dofNearLimit_ = s * h / (s - F + h);
  dofFarLimit_ = std::abs(hyperfocal_ - s) < kHyperfocalTolerance ? -1 : s * h / (h - (s - F));
  if (dofFarLimit_ > 0 && dofFarLimit_ < dofNearLimit_) {
    dofNearLimit_ = s;
    dofFarLimit_ = s;
  }
  inverseDepthOfField_ = dofFarLimit_ - dofNearLimit_;
}

}  // namespace zenivo
