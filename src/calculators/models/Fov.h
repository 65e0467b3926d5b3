// Field of view of a rectilinear lens.
//
// Focal lengths and distances are metres, sensor sizes millimetres, angles
// degrees; 32-bit floats.
//
// Error: angles and lengths 3e-7 of themselves, inverses 5e-7 (1e6 random lenses and sensors).
// Special cases: with focal length 0 an angle is 180 degrees and a length infinite.
// Source: similar triangles at the lens: tan(angle/2) = size / 2F, length / distance = size / F.

#pragma once

#include "calculators/models/LensModel.h"

namespace zenivo {

/// The angle that a lens sees on a sensor, focused at infinity, and the part of a
/// scene that it covers at a distance.
///
/// Setting an input computes nothing: call calculateFOVValues.  Nothing is refused
/// here: with focal length 0 an angle is 180 degrees and a length infinite.
class Fov : public FrameModel {
 public:
  Fov() = default;
  Fov(float sensorWidth, float sensorHeight, float focalLength, float teleconverter1,
      float teleconverter2, float subjectDistance);

  float subjectDistance() const { return subjectDistance_; }
  void setSubjectDistance(float distance) { subjectDistance_ = distance; }

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
  float subjectDistance_ = 0;
  float horizontalAov_ = 0;
  float verticalAov_ = 0;
  float diagonalAov_ = 0;
  float horizontalFov_ = 0;
  float verticalFov_ = 0;
  float diagonalFov_ = 0;
};

/// Lens, sensor and object; focal length, object and result in metres.
class FovSubjectDistance : public FrameModel {
 public:
  FovSubjectDistance() = default;
  FovSubjectDistance(float sensorWidth, float sensorHeight, float focalLength, float teleconverter1,
                     float teleconverter2, float objectWidth, float objectHeight);

  float objectWidth() const { return objectWidth_; }
  void setObjectWidth(float width) { objectWidth_ = width; }
  float objectHeight() const { return objectHeight_; }
  void setObjectHeight(float height) { objectHeight_ = height; }

  /// Distance at which `objectSize` metres fill `sensorSize` millimetres.
  float calculateMinimumDistanceForSensorSizeAndObjectSize(float sensorSize,
                                                           float objectSize) const;

  /// The nearest distance from which the object's width and height both fit.
  float calculateMinimumSubjectDistance() const;

 private:
  float objectWidth_ = 0;
  float objectHeight_ = 0;
};

}  // namespace zenivo
