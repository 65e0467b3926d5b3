// The frame that a lens fills.

#pragma once

#include "calculators/camera/SensorSize.h"
#include "calculators/models/LensModel.h"

namespace zenivo {

/// A lens on a sensor, and how the camera is held.
class FrameModel : public LensModel {
 public:
  /// Millimetres, as the camera lies.
  float sensorWidth() const { return sensor_.width; }
  void setSensorWidth(float width) { sensor_.width = width; }
  float sensorHeight() const { return sensor_.height; }
  void setSensorHeight(float height) { sensor_.height = height; }

  /// Whether the camera stands upright, which exchanges width and height in all that
  /// follows but not in the two fields above.
  bool isPortrait() const { return isPortrait_; }
  void setIsPortrait(bool isPortrait) { isPortrait_ = isPortrait; }

  /// The sides as the camera is held.
  float getSensorWidth() const { return isPortrait_ ? sensor_.height : sensor_.width; }
  float getSensorHeight() const { return isPortrait_ ? sensor_.width : sensor_.height; }
  float getSensorDiagonal() const { return sensor_.diagonal(); }

  bool isFixedFocalLength() const { return isFixedFocalLength_; }
  void setIsFixedFocalLength(bool isFixed) { isFixedFocalLength_ = isFixed; }

 protected:
  FrameModel() = default;
  FrameModel(const SensorSize& sensor, float focalLength, float teleconverter1,
             float teleconverter2)
      : LensModel(focalLength, teleconverter1, teleconverter2), sensor_(sensor) {}
  ~FrameModel() = default;

 private:
  SensorSize sensor_;
  bool isPortrait_ = false;
  bool isFixedFocalLength_ = false;
};

}  // namespace zenivo
