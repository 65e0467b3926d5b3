#include "calculators/models/Fov.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zenivo {
namespace {

constexpr double kDegreesPerRadian = 180 / std::numbers::pi;

}  // namespace

Fov::Fov(float sensorWidth, float sensorHeight, float focalLength, float teleconverter1,
         float teleconverter2, float subjectDistance)
    : FrameModel({sensorWidth, sensorHeight}, focalLength, teleconverter1, teleconverter2),
      subjectDistance_(subjectDistance) {}

float Fov::angleOfViewForSensorSize(float size) const {
  const double F = effectiveFocalLength();
  return static_cast<float>(2 * std::atan(size / (2 * F * 1000)) * kDegreesPerRadian);
}

float Fov::fieldOfViewForSensorSize(float size) const {
  return subjectDistance_ * size / (effectiveFocalLength() * 1000);
}

void Fov::calculateFOVValues() {
  horizontalAov_ = angleOfViewForSensorSize(getSensorWidth());
  verticalAov_ = angleOfViewForSensorSize(getSensorHeight());
  diagonalAov_ = angleOfViewForSensorSize(getSensorDiagonal());
  horizontalFov_ = fieldOfViewForSensorSize(getSensorWidth());
  verticalFov_ = fieldOfViewForSensorSize(getSensorHeight());
  diagonalFov_ = fieldOfViewForSensorSize(getSensorDiagonal());
}

float Fov::calculateFocalLengthForSensorSizeAndAoV(float size, float angle) const {
  const double halfAngle = angle / 2 / kDegreesPerRadian;
  return static_cast<float>(size / (std::tan(halfAngle) * 2000) / teleconverter());
}

float Fov::calculateFocalLengthForHorizontalAoV(float angle) const {
  return calculateFocalLengthForSensorSizeAndAoV(getSensorWidth(), angle);
}

float Fov::calculateFocalLengthForVerticalAoV(float angle) const {
  return calculateFocalLengthForSensorSizeAndAoV(getSensorHeight(), angle);
}

float Fov::calculateFocalLengthForDiagonalAoV(float angle) const {
  return calculateFocalLengthForSensorSizeAndAoV(getSensorDiagonal(), angle);
}

float Fov::calculateFocalLengthForSensorSizeAndFoV(float size, float length) const {
  return subjectDistance_ * size / (length * 1000) / teleconverter();
}

float Fov::calculateFocalLengthForHorizontalFoV(float length) const {
  return calculateFocalLengthForSensorSizeAndFoV(getSensorWidth(), length);
}

float Fov::calculateFocalLengthForVerticalFoV(float length) const {
  return calculateFocalLengthForSensorSizeAndFoV(getSensorHeight(), length);
}

float Fov::calculateFocalLengthForDiagonalFoV(float length) const {
  return calculateFocalLengthForSensorSizeAndFoV(getSensorDiagonal(), length);
}

float Fov::calculateSubjectDistanceForSensorSizeAndFoV(float size, float length) const {
  return length / (size / (effectiveFocalLength() * 1000));
}

float Fov::calculateSubjectDistanceForHorizontalFoV(float length) const {
  return calculateSubjectDistanceForSensorSizeAndFoV(getSensorWidth(), length);
}

float Fov::calculateSubjectDistanceForVerticalFoV(float length) const {
  return calculateSubjectDistanceForSensorSizeAndFoV(getSensorHeight(), length);
}

float Fov::calculateSubjectDistanceForDiagonalFoV(float length) const {
  return calculateSubjectDistanceForSensorSizeAndFoV(getSensorDiagonal(), length);
}

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
