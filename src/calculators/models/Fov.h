// Field of view of a rectilinear lens.
//
// Focal lengths and distances are metres, sensor sizes millimetres, angles
// degrees; 32-bit floats.

#pragma once

#include "calculators/camera/SensorSize.h"

namespace zenivo {

/// The angle that a lens sees on a sensor, focused at infinity, and the part of a
/// scene that it covers at a distance.
///
/// Setting an input computes nothing: call calculateFOVValues.  Nothing is refused
/// here: with focal length 0 an angle is 180 degrees and a length infinite.
class Fov {
 public:
  Fov() = default;
  Fov(float sensorWidth, float sensorHeight, float focalLength, float teleconverter1,
      float teleconverter2, float subjectDistance);

  float sensorWidth() const { return sensor_.width; }
  void setSensorWidth(float width) { sensor_.width = width; }
  float sensorHeight() const { return sensor_.height; }
  void setSensorHeight(float height) { sensor_.height = height; }

  /// Of the lens alone, before teleconverters.
  float focalLength() const { return focalLength_; }
  void setFocalLength(float focalLength) { focalLength_ = focalLength; }

  float subjectDistance() const { return subjectDistance_; }
  void setSubjectDistance(float distance) { subjectDistance_ = distance; }

  /// A factor that is not above 0 is stored as 1.
  float teleconverter1() const { return teleconverter1_; }
  void setTeleconverter1(float factor);
  float teleconverter2() const { return teleconverter2_; }
  void setTeleconverter2(float factor);
  /// Both factors together.
  float teleconverter() const { return teleconverter1_ * teleconverter2_; }

  /// Whether the camera stands upright, which exchanges width and height in all
  /// that follows but not in the two fields.
  bool isPortrait() const { return isPortrait_; }
  void setIsPortrait(bool isPortrait) { isPortrait_ = isPortrait; }

  bool isFixedFocalLength() const { return isFixedFocalLength_; }
  void setIsFixedFocalLength(bool isFixed) { isFixedFocalLength_ = isFixed; }

  /// The sides as the camera is held.
  float getSensorWidth() const { return isPortrait_ ? sensor_.height : sensor_.width; }
  float getSensorHeight() const { return isPortrait_ ? sensor_.width : sensor_.height; }
  float getSensorDiagonal() const { return sensor_.diagonal(); }
  float aspectRatio() const { return getSensorWidth() / getSensorHeight(); }

  float angleOfViewForSensorSize(float size) const;
  float fieldOfViewForSensorSize(float size) const;

  /// Computes the six values below from the inputs above.
  void calculateFOVValues();

  float horizontalAov() const { return horizontalAov_; }
  float verticalAov() const { return verticalAov_; }
  float diagonalAov() const { return diagonalAov_; }
  float horizontalFov() const { return horizontalFov_; }
  float verticalFov() const { return verticalFov_; }
  float diagonalFov() const { return diagonalFov_; }

  // The wanted results as inputs, for the results to drive an input.

  void setHorizontalAov(float angle) { horizontalAov_ = angle; }
  void setVerticalAov(float angle) { verticalAov_ = angle; }
  void setDiagonalAov(float angle) { diagonalAov_ = angle; }
  void setHorizontalFov(float length) { horizontalFov_ = length; }
  void setVerticalFov(float length) { verticalFov_ = length; }
  void setDiagonalFov(float length) { diagonalFov_ = length; }

  // The inverse operations: the value of one input that gives the wanted result,
  // the other inputs staying as they are.  Nothing is stored.

  float calculateFocalLengthForSensorSizeAndAoV(float size, float angle) const;
  float calculateFocalLengthForHorizontalAoV(float angle) const;
  float calculateFocalLengthForVerticalAoV(float angle) const;
  float calculateFocalLengthForDiagonalAoV(float angle) const;

  float calculateFocalLengthForSensorSizeAndFoV(float size, float length) const;
  float calculateFocalLengthForHorizontalFoV(float length) const;
  float calculateFocalLengthForVerticalFoV(float length) const;
  float calculateFocalLengthForDiagonalFoV(float length) const;

  float calculateSubjectDistanceForSensorSizeAndFoV(float size, float length) const;
  float calculateSubjectDistanceForHorizontalFoV(float length) const;
  float calculateSubjectDistanceForVerticalFoV(float length) const;
  float calculateSubjectDistanceForDiagonalFoV(float length) const;

 private:
  float effectiveFocalLength() const { return focalLength_ * teleconverter(); }

  SensorSize sensor_;
  float focalLength_ = 0;
  float subjectDistance_ = 0;
  float teleconverter1_ = 1;
  float teleconverter2_ = 1;
  bool isPortrait_ = false;
  float horizontalAov_ = 0;
  float verticalAov_ = 0;
  float diagonalAov_ = 0;
  float horizontalFov_ = 0;
  float verticalFov_ = 0;
  float diagonalFov_ = 0;
  bool isFixedFocalLength_ = false;
};

}  // namespace zenivo
