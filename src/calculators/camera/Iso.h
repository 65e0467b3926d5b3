// Film and sensor speeds.

#pragma once

#include <span>
#include <vector>

namespace zenivo {

struct Iso {
  /// The ladder of speeds, ascending: thirds of a stop up to 32000, whole stops
  /// above it.
  static std::vector<int> standardISOValues();

  /// The entry nearest to `value`, of two equally near the later.
  /// REQUIRES: an ascending array that is not empty.
  static int findNearestIsoOfValue(float value, std::span<const int> inArray);
};

}  // namespace zenivo
