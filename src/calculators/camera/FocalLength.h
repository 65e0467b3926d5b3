// Focal lengths of photographic lenses.

#pragma once

#include <vector>

namespace zenivo {

struct FocalLength {
  /// The focal lengths that lenses are made in, ascending, in metres: 7 mm to 1 m.
  static std::vector<float> standardFocalLengths();
};

}  // namespace zenivo
