// The lens of an optical model, and the frame that it fills.

#pragma once

#include "calculators/camera/LensInput.h"
#include "calculators/camera/SensorSize.h"

namespace zenivo {

/// Focal length, in metres, and teleconverters.
class LensModel {
 public:
  /// Of the lens alone, before teleconverters.
  float focalLength() const { return focalLength_; }
  void setFocalLength(float focalLength) { focalLength_ = focalLength; }

  /// A factor that is not above 0 is stored as 1.
  float teleconverter1() const { return teleconverter1_; }
  void setTeleconverter1(float factor) { teleconverter1_ = teleconverterFactor(factor); }
  float teleconverter2() const { return teleconverter2_; }
  void setTeleconverter2(float factor) { teleconverter2_ = teleconverterFactor(factor); }
  /// Both factors together.
  float teleconverter() const { return teleconverter1_ * teleconverter2_; }

 protected:
  LensModel() = default;
  LensModel(float focalLength, float teleconverter1, float teleconverter2)
      : focalLength_(focalLength),
        teleconverter1_(teleconverterFactor(teleconverter1)),
        teleconverter2_(teleconverterFactor(teleconverter2)) {}
  ~LensModel() = default;

  /// With both teleconverters.
  float effectiveFocalLength() const { return focalLength_ * teleconverter(); }

 private:
  float focalLength_ = 0;
  float teleconverter1_ = 1;
  float teleconverter2_ = 1;
};

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
