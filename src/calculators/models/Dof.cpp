#include "calculators/models/Dof.h"

#include <algorithm>
#include <cmath>

#include "calculators/models/QuarticSolver.h"

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

// The inverse operations.  Each solves the formulas of calculateDOFValues,
//
//   near = s h / (h + (s - F)),   far = s h / (h - (s - F)),
//
// for one of s, F and N, with h = F^2 / K and K = N c.  The limits are linear in s and, over F^2,
// quadratic in F.  With e = s - F the depth x is
//
//   far - near = 2 s h e / (h^2 - e^2),                                    so
//   for s:  x h^2 - x (s-F)^2 = 2 s h (s-F)   is quadratic in s,
//   for h:  x h^2 - 2 s e h - x e^2 = 0       is quadratic in h, whence N = F^2 / (c h),
//   for F:  with h = F^2/K it is  x F^4/K^2 + 2 s F^3/K - (2 s^2/K + x) F^2 + 2 x s F - x s^2 = 0.

float Dof::quadraticSolverForA(float a, float b, float c) {
  const double B = b;
  const double discriminant = B * B + a * -4 * c;
  const double root = std::sqrt(discriminant);
  const double doubleA = 2 * static_cast<double>(a);
  const double r1 = (-B + root) / doubleA;
  const double r2 = (-B - root) / doubleA;
  return static_cast<float>(r1 < 0 ? r2 : r1);
}

float Dof::calculateSubjectDistanceForDOFNearLimit(float x) const {
  const float F = effectiveFocalLength();
  const float h = hyperfocalTerm();
  return (x * h - x * F) / (h - x);
}

float Dof::calculateSubjectDistanceForDOFFarLimit(float x) const {
  const float F = effectiveFocalLength();
  const float h = hyperfocalTerm();
  return (x * h + x * F) / (h + x);
}

float Dof::calculateSubjectDistanceForDOF(float x) const {
  const float F = effectiveFocalLength();
  const float h = hyperfocalTerm();
  return quadraticSolverForA(2 * h / x + 1, -(2 * F) - (F * 2 * h) / x, F * F - h * h);
}

float Dof::calculateFocalLengthForHyperfocal(float x) const {
  const auto K = static_cast<float>(apertureTimesCoc());
  return quadraticSolverForA(1, K, -x * K) / teleconverter();
}

float Dof::calculateFocalLengthForHyperfocalNearLimit(float x) const {
  return calculateFocalLengthForHyperfocal(2 * x);
}

float Dof::calculateFocalLengthForDOFNearLimit(float x) const {
  const auto K = static_cast<float>(apertureTimesCoc());
  const float s = subjectDistance_;
  return quadraticSolverForA((s - x) / K, x, -x * s) / teleconverter();
}

float Dof::calculateFocalLengthForDOFFarLimit(float x) const {
  const auto K = static_cast<float>(apertureTimesCoc());
  const float s = subjectDistance_;
  return quadraticSolverForA((s - x) / K, -x, x * s) / teleconverter();
}

float Dof::calculateFocalLengthForDOF(float x) const {
  const double K = apertureTimesCoc();
  const double s = subjectDistance_;
  const QuarticRoots roots =
      solveQuartic({-x * s * s, 2 * x * s, -(2 * s * s / K + x), 2 * s / K, x / (K * K)});
  if (roots.realCount == 0) return -1;
  return static_cast<float>(std::max(-1.0, std::ranges::max(roots.real)) / teleconverter());
}

float Dof::apertureForHyperfocalTerm(float term) const {
  const float F = effectiveFocalLength();
  return F * F / (circleOfConfusion_ * term);
}

float Dof::calculateApertureForHyperfocal(float x) const {
  return apertureForHyperfocalTerm(x - effectiveFocalLength());
}

float Dof::calculateApertureForHyperfocalNearLimit(float x) const {
  return calculateApertureForHyperfocal(2 * x);
}

float Dof::calculateApertureForDOFNearLimit(float x) const {
  const float s = subjectDistance_;
  return apertureForHyperfocalTerm((s - effectiveFocalLength()) * x / (s - x));
}

float Dof::calculateApertureForDOFFarLimit(float x) const {
  const float s = subjectDistance_;
  return apertureForHyperfocalTerm(-x * (s - effectiveFocalLength()) / (s - x));
}

float Dof::calculateApertureForDOF(float x) const {
  const float F = effectiveFocalLength();
  const float s = subjectDistance_;
  const float u = quadraticSolverForA(x, 2 * s * F - 2 * s * s, -x * ((s - F) * (s - F)));
  return apertureForHyperfocalTerm(u);
}

}  // namespace zenivo
