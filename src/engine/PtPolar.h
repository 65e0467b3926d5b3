// A place in the observer's sky.

#pragma once

namespace zenivo {

/// PtPolar: where a body stands above the horizon.
struct PtPolar {
  double azimuth_ = 0;    ///< degrees, from north through east, 0 up to 360
  double elevation_ = 0;  ///< degrees, lifted by refraction; negative below the horizon
  double distance_ = 0;   ///< Sun: astronomical units; Moon: kilometres; fixed bodies: 1

  friend bool operator==(const PtPolar&, const PtPolar&) = default;
};

}  // namespace zenivo
