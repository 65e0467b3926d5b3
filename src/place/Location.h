// A point on the Earth, as the user gives it.

#pragma once

namespace zenivo {

struct Location {
  double latitude = 0;   ///< degrees, -90 to 90, north positive
  double longitude = 0;  ///< degrees, -180 to 180, east positive
  double altitude = 0;   ///< metres
};

}  // namespace zenivo
