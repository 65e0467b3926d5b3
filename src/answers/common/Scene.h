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
  std::string placeName;  ///< of a city that was named; empty for coordinates
  TimeZone zone;
  std::string zoneOrigin;  ///< why this zone: "as given", "the city's own", …
};

/// {"latitude": …, "longitude": …, "altitude": …}
Json placeJson(const ZVLocation& location);

}  // namespace zenivo
