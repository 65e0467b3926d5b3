// Sensors and what follows from their size.

#pragma once

#include <cmath>

namespace zenivo {

/// Diagonal in millimetres of the frame of 36 by 24 mm, to which crop factors refer.
inline constexpr float kFullFrameDiagonal = 43.266617F;

/// Width and height of a sensor or a film frame in millimetres.
struct SensorSize {
  float width = 0;
  float height = 0;

  float diagonal() const { return std::sqrt(width * width + height * height); }

  /// The circle of confusion in millimetres that is taken where none is given: the
  /// diagonal by 1440, 0.030 mm on a full frame.
  float circleOfConfusion() const { return diagonal() / 1440; }

  /// How many times smaller than a full frame; 0 for a sensor without size.
  float cropFactor() const { return diagonal() == 0 ? 0 : kFullFrameDiagonal / diagonal(); }

  friend bool operator==(const SensorSize&, const SensorSize&) = default;
};

}  // namespace zenivo
