#include "calculators/models/FovSubjectDistance.h"

#include <algorithm>

namespace zenivo {

FovSubjectDistance::FovSubjectDistance(float sensorWidth, float sensorHeight, float focalLength,
                                       float teleconverter1, float teleconverter2,
                                       float objectWidth, float objectHeight)
    : FrameModel({sensorWidth, sensorHeight}, focalLength, teleconverter1, teleconverter2),
      objectWidth_(objectWidth),
      objectHeight_(objectHeight) {}

float FovSubjectDistance::calculateMinimumDistanceForSensorSizeAndObjectSize(
    float sensorSize, float objectSize) const {
  return effectiveFocalLength() * 1000 * objectSize / sensorSize;
}

float FovSubjectDistance::calculateMinimumSubjectDistance() const {
  return std::max(
      calculateMinimumDistanceForSensorSizeAndObjectSize(getSensorWidth(), objectWidth_),
      calculateMinimumDistanceForSensorSizeAndObjectSize(getSensorHeight(), objectHeight_));
}

}  // namespace zenivo
