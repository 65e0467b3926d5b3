#include "calculators/models/Timelapse.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zenivo {

Timelapse Timelapse::initWithFps(std::int32_t fps, double clipLength, double eventDuration,
                                 double imageSize) {
  return {0, fps, clipLength, eventDuration, imageSize};
}

// A clip length that this calculator gave may come back with noise in its last
// digits, which the ceiling would turn into a frame; hence the hundredths.

void Timelapse::calculateShootingInterval() {
  shootingInterval = eventDuration / std::ceil(std::round(clipLength * fps * 100) / 100);
}

void Timelapse::calculateClipLength() {
  clipLength = std::ceil(eventDuration / shootingInterval) / fps;
}

void Timelapse::calculateEventDuration() {
  eventDuration = shootingInterval * std::ceil(std::round(clipLength * 100) * fps / 100);
}

std::int32_t Timelapse::numberOfPhotos() const {
  // 420 s by 1.12 s is 374.99999999999994 here: what is whole to a billionth is whole.
  constexpr double kBillion = 1e9;
  const double photos =
      std::floor(std::round(eventDuration / shootingInterval * kBillion) / kBillion);
  if (!std::isfinite(photos)) return 0;
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(photos, 0.0, kMost));
}

float Timelapse::totalMemoryUsage() const {
  return static_cast<float>(imageSize * numberOfPhotos());
}

}  // namespace zenivo
