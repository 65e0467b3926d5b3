// Matching a second camera to a first one: the focal length that gives the same
// framing and the aperture that gives the same depth of field.
//
// Error: focal lengths are whole millimetres, apertures those of the ladder; see `exactFstop`.
// Special cases: no aperture gives an infinite depth; what camera 2 fixes is not matched.
// Source: the angles of Fov.h and the depths of Dof.h, inverted.

#pragma once

#include <optional>

#include "calculators/camera/ApertureManager.h"
#include "calculators/camera/SensorSize.h"
#include "calculators/models/Dof.h"
#include "calculators/models/Fov.h"
#include "calculators/models/LensModel.h"

namespace zenivo {

/// The outcome of a match.
struct FocalLengthMatch {
  // Focal lengths of camera 2 in whole millimetres, given in metres, that see the
  // same angle along a side of the frame; all 0 when its lens is fixed.
  float horizontal = 0;
  float vertical = 0;
  float diagonal = 0;
  /// The aperture of camera 2 as shown.  0 when its aperture is fixed, and when
  /// none gives the depth of camera 1, as no aperture gives an infinite one.
  float fstop = 0;
  /// The exact one, of which `fstop` is the nearest; 0 with it.
  float exactFstop = 0;
  Dof camera1Dof;
  std::optional<Dof> camera2Dof;  ///< none where there is no `fstop`
  Fov camera1Fov;
  std::optional<Fov> camera2Fov;  ///< with the diagonal match; none with a fixed lens
};

/// Two cameras and the first one's lens.  Lengths are metres, sensors millimetres.
class EquivalentFocalLength : public LensModel {
 public:
  EquivalentFocalLength() = default;

  /// The circles of confusion in millimetres.
  EquivalentFocalLength(const SensorSize& camera1Sensor, const SensorSize& camera2Sensor,
                        float camera1CoC, float camera2CoC, float focalLength, float teleconverter1,
                        float teleconverter2, const Aperture& aperture, float subjectDistance);

  /// Metres; set in millimetres, which are rounded to whole micrometres.
  float circleOfConfusionCamera1() const { return circleOfConfusionCamera1_; }
  void setCircleOfConfusionCamera1(float millimetres);
  float circleOfConfusionCamera2() const { return circleOfConfusionCamera2_; }
  void setCircleOfConfusionCamera2(float millimetres);

  const SensorSize& cameraSensor1() const { return cameraSensor1_; }
  void setCameraSensor1(const SensorSize& sensor) { cameraSensor1_ = sensor; }
  const SensorSize& cameraSensor2() const { return cameraSensor2_; }
  void setCameraSensor2(const SensorSize& sensor) { cameraSensor2_ = sensor; }

  const Aperture& aperture() const { return aperture_; }
  void setAperture(const Aperture& aperture) { aperture_ = aperture; }

  float subjectDistance() const { return subjectDistance_; }
  void setSubjectDistance(float distance) { subjectDistance_ = distance; }

  bool isCamera1FixedFocalLength() const { return isCamera1FixedFocalLength_; }
  void setIsCamera1FixedFocalLength(bool isFixed) { isCamera1FixedFocalLength_ = isFixed; }
  bool isCamera1FixedAperture() const { return isCamera1FixedAperture_; }
  void setIsCamera1FixedAperture(bool isFixed) { isCamera1FixedAperture_ = isFixed; }
  bool isCamera2FixedAperture() const { return isCamera2FixedAperture_; }
  void setIsCamera2FixedAperture(bool isFixed) { isCamera2FixedAperture_ = isFixed; }

  /// The focal length of camera 2 when its lens is fixed, else 0.  Its depth of field
  /// is then matched at that focal length.
  bool isCamera2FixedFocalLength() const { return camera2FixedFocalLength_ > 0; }
  void setCamera2FixedFocalLength(float focalLength) { camera2FixedFocalLength_ = focalLength; }

  const FocalLengthMatch& match() const { return match_; }

  /// Computes and keeps the match; the aperture is looked up among `stops`.
  const FocalLengthMatch& calculateMatch(const ApertureManager& stops);

 private:
  void matchFocalLength();
  void matchAperture(const ApertureManager& stops);

  float circleOfConfusionCamera1_ = 0;
  float circleOfConfusionCamera2_ = 0;
  SensorSize cameraSensor1_;
  SensorSize cameraSensor2_;
  Aperture aperture_;
  float subjectDistance_ = 0;
  bool isCamera1FixedFocalLength_ = false;
  bool isCamera1FixedAperture_ = false;
  bool isCamera2FixedAperture_ = false;
  float camera2FixedFocalLength_ = 0;
  FocalLengthMatch match_;
};

}  // namespace zenivo
