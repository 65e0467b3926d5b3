// How far away an object fits into the frame.

#pragma once

#include "calculators/models/FrameModel.h"

namespace zenivo {

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
