#include "calculators/models/EquivalentFocalLength.h"

#include <cmath>

#include "calculators/models/Refusal.h"

namespace zenivo {
namespace {

float metresInWholeMicrometres(float millimetres) {
  return std::trunc(millimetres * 1000 + 0.5F) / 1000000;
}

float roundedToMillimetre(float metres) {
  return static_cast<float>(std::trunc(static_cast<double>(metres) * 1000 + 0.5) / 1000);
}

}  // namespace

EquivalentFocalLength::EquivalentFocalLength(const SensorSize& camera1Sensor,
                                             const SensorSize& camera2Sensor, float camera1CoC,
                                             float camera2CoC, float focalLength,
                                             float teleconverter1, float teleconverter2,
                                             const Aperture& aperture, float subjectDistance)
    : LensModel(focalLength, teleconverter1, teleconverter2),
      cameraSensor1_(camera1Sensor),
      cameraSensor2_(camera2Sensor),
      aperture_(aperture),
      subjectDistance_(subjectDistance) {
  setCircleOfConfusionCamera1(camera1CoC);
  setCircleOfConfusionCamera2(camera2CoC);
}

void EquivalentFocalLength::setCircleOfConfusionCamera1(float millimetres) {
  circleOfConfusionCamera1_ = metresInWholeMicrometres(millimetres);
}

void EquivalentFocalLength::setCircleOfConfusionCamera2(float millimetres) {
  circleOfConfusionCamera2_ = metresInWholeMicrometres(millimetres);
}

const FocalLengthMatch& EquivalentFocalLength::calculateMatch(const ApertureManager& stops) {
  match_ = FocalLengthMatch();
  match_.camera1Fov = Fov(cameraSensor1_.width, cameraSensor1_.height, focalLength(),
                          teleconverter1(), teleconverter2(), subjectDistance_);
  match_.camera1Fov.calculateFOVValues();
  if (!isCamera2FixedFocalLength()) matchFocalLength();
  match_.camera1Dof = Dof(focalLength(), aperture_, subjectDistance_, teleconverter1(),
                          teleconverter2(), circleOfConfusionCamera1_ * 1000);
  if (!isCamera2FixedAperture_) matchAperture(stops);
  return match_;
}

void EquivalentFocalLength::matchFocalLength() {
  Fov fov(cameraSensor2_.width, cameraSensor2_.height, 0, 1, 1, subjectDistance_);
  const Fov& first = match_.camera1Fov;
  match_.horizontal =
      roundedToMillimetre(fov.calculateFocalLengthForHorizontalAoV(first.horizontalAov()));
  match_.vertical =
      roundedToMillimetre(fov.calculateFocalLengthForVerticalAoV(first.verticalAov()));
  match_.diagonal =
      roundedToMillimetre(fov.calculateFocalLengthForDiagonalAoV(first.diagonalAov()));
  fov.setFocalLength(match_.diagonal);
  fov.calculateFOVValues();
  match_.camera2Fov = fov;
}

void EquivalentFocalLength::matchAperture(const ApertureManager& stops) {
  // An infinite depth is a negative number here, to which the equation below would
  // find a root that means nothing.
  const float depth = match_.camera1Dof.depthOfField();
  if (depth < 0) return;
  const float matched = isCamera2FixedFocalLength() ? camera2FixedFocalLength_ : match_.diagonal;
  Dof dof(matched, aperture_, subjectDistance_, 1, 1, circleOfConfusionCamera2_ * 1000);
  const float exact = dof.calculateApertureForDOF(depth);
  if (isRefusedResult(exact)) return;
  const Aperture stop = stops.apertureForStop(exact);
  match_.fstop = static_cast<float>(stop.fstop);
  match_.exactFstop = exact;
  dof.setAperture(stop);
  dof.calculateDOFValues();
  match_.camera2Dof = dof;
}

}  // namespace zenivo
