#include "calculators/models/FovSubjectDistance.h"

#include <algorithm>

#include "calculators/camera/Teleconverter.h"

namespace zenivo {

FovSubjectDistance::FovSubjectDistance(float sensorWidth, float sensorHeight, float focalLength,
                                       float teleconverter1, float teleconverter2,
                                       float objectWidth, float objectHeight)
    : sensor_{sensorWidth, sensorHeight},
      focalLength_(focalLength),
      objectWidth_(objectWidth),
      objectHeight_(objectHeight) {
  setTeleconverter1(teleconverter1);
  setTeleconverter2(teleconverter2);
}

void FovSubjectDistance::setTeleconverter1(float factor) {
  teleconverter1_ = teleconverterFactor(factor);
}

void FovSubjectDistance::setTeleconverter2(float factor) {
  teleconverter2_ = teleconverterFactor(factor);
}

float FovSubjectDistance::calculateMinimumDistanceForSensorSizeAndObjectSize(
    float sensorSize, float objectSize) const {
  return focalLength_ * teleconverter() * 1000 * objectSize / sensorSize;
}

float FovSubjectDistance::calculateMinimumSubjectDistance() const {
  const float width = isPortrait_ ? sensor_.height : sensor_.width;
  const float height = isPortrait_ ? sensor_.width : sensor_.height;
  return std::max(calculateMinimumDistanceForSensorSizeAndObjectSize(width, objectWidth_),
                  calculateMinimumDistanceForSensorSizeAndObjectSize(height, objectHeight_));
}

}  // namespace zenivo
