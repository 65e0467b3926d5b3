// Shutter speeds as a camera's dial shows them.

#pragma once

#include <span>
#include <string>
#include <vector>

namespace zenivo {

struct ShutterSpeed {
  float value = 0;   ///< seconds
  std::string text;  ///< as on the dial: 1/250, or 30" for seconds

  static ShutterSpeed shutterSpeedWithValue(float value, std::string text);

  /// The ladder in thirds of a stop, from 1/8000 to 30 seconds, ascending.
  static std::vector<ShutterSpeed> standardShutterSpeeds();

  /// The entry nearest to `value` seconds, of two equally near the later.
  /// REQUIRES: an ascending array that is not empty.
  static ShutterSpeed findNearestShutterSpeedOfValue(float value,
                                                     std::span<const ShutterSpeed> inArray);
};

}  // namespace zenivo
