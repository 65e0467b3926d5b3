// A body's way through the sky of one day.

#pragma once

#include <string>
#include <vector>

namespace zenivo {

/// One point of the path.
struct BodyPathItem {
  double azimuth = 0;    ///< radians, from true north through east
  double elevation = 0;  ///< radians, with refraction; 0 at rise and set
  double mjd = 0;
  std::string label;         ///< the local time
  bool isMainPoint = false;  ///< a sample on the whole hour
  bool isRise = false;
  bool isSet = false;
  bool breakPath = false;  ///< a new arc begins here: it is not joined to the item before

  friend bool operator==(const BodyPathItem&, const BodyPathItem&) = default;
};

/// In time order.
using BodyPath = std::vector<BodyPathItem>;

}  // namespace zenivo
