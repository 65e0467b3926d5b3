// How far away an object fits into the frame.

#pragma once

#include "calculators/camera/SensorSize.h"

namespace zenivo {

/// Lens, sensor and object; focal length, object and result in metres.
class FovSubjectDistance {
 public:
  FovSubjectDistance() = default;
  FovSubjectDistance(float sensorWidth, float sensorHeight, float focalLength, float teleconverter1,
                     float teleconverter2, float objectWidth, float objectHeight);

  /// Whether the camera stands upright.
  bool isPortrait() const { return isPortrait_; }
  void setIsPortrait(bool isPortrait) { isPortrait_ = isPortrait; }

  /// Millimetres, as the camera lies.
  float sensorWidth() const { return sensor_.width; }
  void setSensorWidth(float width) { sensor_.width = width; }
  float sensorHeight() const { return sensor_.height; }
  void setSensorHeight(float height) { sensor_.height = height; }

  /// Of the lens alone, before teleconverters.
  float focalLength() const { return focalLength_; }
  void setFocalLength(float focalLength) { focalLength_ = focalLength; }

  float objectWidth() const { return objectWidth_; }
  void setObjectWidth(float width) { objectWidth_ = width; }
  float objectHeight() const { return objectHeight_; }
  void setObjectHeight(float height) { objectHeight_ = height; }

  /// A factor that is not above 0 is stored as 1.
  float teleconverter1() const { return teleconverter1_; }
  void setTeleconverter1(float factor);
  float teleconverter2() const { return teleconverter2_; }
  void setTeleconverter2(float factor);
  /// Both factors together.
  float teleconverter() const { return teleconverter1_ * teleconverter2_; }

  bool isFixedFocalLength() const { return isFixedFocalLength_; }
  void setIsFixedFocalLength(bool isFixed) { isFixedFocalLength_ = isFixed; }

  /// Distance at which `objectSize` metres fill `sensorSize` millimetres.
  float calculateMinimumDistanceForSensorSizeAndObjectSize(float sensorSize,
                                                           float objectSize) const;

  /// The nearest distance from which the object's width and height both fit.
  float calculateMinimumSubjectDistance() const;

 private:
  bool isPortrait_ = false;
  SensorSize sensor_;
  float focalLength_ = 0;
  float objectWidth_ = 0;
  float objectHeight_ = 0;
  float teleconverter1_ = 1;
  float teleconverter2_ = 1;
  bool isFixedFocalLength_ = false;
};

}  // namespace zenivo
