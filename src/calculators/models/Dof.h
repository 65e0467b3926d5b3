// Depth of field of a thin lens.
//
// Lengths are metres and 32-bit floats.  A far limit or a depth below 0 means
// infinity.  With F the focal length behind the teleconverters, N the focal ratio
// and c the circle of confusion, h = F^2 / (N c) is the distance at which the
// formulas of Greenleaf (Photographic Optics, 1950) put the hyperfocal point,
// counted from the front focal point.
//
// Error: hyperfocal distance 3e-7, limits 4e-7 and 2e-6 of their distance (2e6 random lenses of 8
// to 800 mm, f/1 to f/32, 1.5 to 300 m, far limits to nine tenths of the hyperfocal distance;
// beyond, they are ill-conditioned); inverses of the depth 1e-5 where it is a hundredth of the
// distance or more.
// Special cases: infinity is a negative far limit; inside the focal length both limits are
// the subject distance; what no lens can do is not-a-number, infinite, 0 or negative.
// Source: A. R. Greenleaf, Photographic Optics (1950).

#pragma once

#include "calculators/camera/ApertureManager.h"
#include "calculators/models/LensModel.h"

namespace zenivo {

/// The lens, its focus and the limits of what it renders sharp.
///
/// Setting an input computes nothing: call calculateDOFValues.  Nothing is
/// refused here; a division by zero shows as an infinity or not-a-number.
class Dof : public LensModel {
 public:
  Dof() = default;

  /// Sets the inputs and computes.  `circleOfConfusion` in millimetres.
  Dof(float focalLength, const Aperture& aperture, float subjectDistance, float teleconverter1,
      float teleconverter2, float circleOfConfusion);

  float circleOfConfusion() const { return circleOfConfusion_; }
  /// In millimetres, as camera records have it; kept in metres.
  void setCircleOfConfusion(float millimetres) { circleOfConfusion_ = millimetres / 1000; }

  const Aperture& aperture() const { return aperture_; }
  void setAperture(const Aperture& aperture) { aperture_ = aperture; }

  float subjectDistance() const { return subjectDistance_; }
  void setSubjectDistance(float distance) { subjectDistance_ = distance; }

  bool isFixedFocalLength() const { return isFixedFocalLength_; }
  void setIsFixedFocalLength(bool isFixed) { isFixedFocalLength_ = isFixed; }
  bool isFixedAperture() const { return isFixedAperture_; }
  void setIsFixedAperture(bool isFixed) { isFixedAperture_ = isFixed; }

  /// Computes the five fields below from the inputs above.  A subject within
  /// 1 cm of the hyperfocal distance has the far limit -1, one beyond it another
  /// negative one.  A subject inside the focal length has no depth: both limits
  /// are then the subject distance.
  void calculateDOFValues();

  /// The nearest focus that keeps infinity sharp.
  float hyperfocal() const { return hyperfocal_; }
  void setHyperfocal(float distance) { hyperfocal_ = distance; }
  float dofNearLimit() const { return dofNearLimit_; }
  void setDofNearLimit(float distance) { dofNearLimit_ = distance; }
  float dofFarLimit() const { return dofFarLimit_; }
  void setDofFarLimit(float distance) { dofFarLimit_ = distance; }
  /// Far limit minus near limit, kept so that it can be asked for as an input.
  float inverseDepthOfField() const { return inverseDepthOfField_; }
  void setInverseDepthOfField(float depth) { inverseDepthOfField_ = depth; }

  /// Near limit when focused at the hyperfocal distance.
  float hyperfocalNearLimit() const { return hyperfocal_ / 2; }
  float depthOfField() const { return dofFarLimit_ - dofNearLimit_; }
  float depthOfFieldInFront() const { return subjectDistance_ - dofNearLimit_; }
  float depthOfFieldBehind() const { return dofFarLimit_ - subjectDistance_; }

  // The inverse operations: the value of one input that gives the wanted result,
  // the other inputs staying as they are.  Nothing is stored.  What no lens can do
  // comes out as not-a-number, an infinity, 0 or a negative number.

  float calculateSubjectDistanceForDOFNearLimit(float x) const;
  float calculateSubjectDistanceForDOFFarLimit(float x) const;
  float calculateSubjectDistanceForDOF(float x) const;

  float calculateFocalLengthForHyperfocal(float x) const;
  float calculateFocalLengthForHyperfocalNearLimit(float x) const;
  float calculateFocalLengthForDOFNearLimit(float x) const;
  float calculateFocalLengthForDOFFarLimit(float x) const;
  /// Solves an equation of the fourth degree; -1 when that has no real root.
  float calculateFocalLengthForDOF(float x) const;

  /// The exact focal ratio, on no ladder.
  float calculateApertureForHyperfocal(float x) const;
  float calculateApertureForHyperfocalNearLimit(float x) const;
  float calculateApertureForDOFNearLimit(float x) const;
  float calculateApertureForDOFFarLimit(float x) const;
  float calculateApertureForDOF(float x) const;

  /// The root (-b + r) / 2a of ax^2 + bx + c = 0, or the other one when that is
  /// negative; not-a-number when there is no real root.
  static float quadraticSolverForA(float a, float b, float c);

 private:
  double apertureTimesCoc() const { return aperture_.value * circleOfConfusion_; }
  float hyperfocalTerm() const;
  float apertureForHyperfocalTerm(float term) const;

  float circleOfConfusion_ = 0;
  Aperture aperture_;
  float subjectDistance_ = 0;
  float inverseDepthOfField_ = 0;
  float hyperfocal_ = 0;
  float dofNearLimit_ = 0;
  float dofFarLimit_ = 0;
  bool isFixedFocalLength_ = false;
  bool isFixedAperture_ = false;
};

}  // namespace zenivo
