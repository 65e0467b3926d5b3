// Where an answer is given for: a place and the clocks there.

#pragma once

#include <string>

#include "answers/common/Moments.h"
#include "foundation/TimeZone.h"
#include "place/ZVLocation.h"

namespace zenivo {

/// A place and the zone of its clocks.
struct Scene {
  ZVLocation location;
  std::string placeName;    ///< of a place that was named; empty for coordinates
  std::string placeOrigin;  ///< whose name that is, or which place is near: "GeoNames, …"
  TimeZone zone;
  std::string zoneOrigin;  ///< why this zone: "as given", "by its borders; …", …
};

/// {"latitude": …, "longitude": …, "altitude": …}
Json placeJson(const ZVLocation& location);

}  // namespace zenivo
