// The lens of an optical model.

#pragma once

#include "calculators/camera/Teleconverter.h"

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

}  // namespace zenivo
