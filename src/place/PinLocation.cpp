#include "place/PinLocation.h"

#include <cmath>

namespace zenivo {

bool PinLocation::isAltitudeValid() const {
  return altitude != kUnknownAltitude && std::isfinite(totalAltitude());
}

void PinLocation::clearAltitude() {
  altitude = kUnknownAltitude;
  altitudeOffset = 0;
  altitudeAccuracy = 0;
}

}  // namespace zenivo
