// The Milky Way's place in an observer's sky at one moment.

#pragma once

#include "engine/Vector3D.h"

namespace zenivo {

/// The galactic centre and the lie of the galactic plane.
///
/// The horizontal frame has x to the north, y to the east and z to the zenith.
/// The point of the plane at an angle t from the centre is
/// cos t * gc_ + sin t * east_.
struct PtMilkyWayPosition {
  double azimuth_ = 0;    ///< degrees, of the centre
  double elevation_ = 0;  ///< degrees, of the centre, lifted by refraction
  double distance_ = 1;
  Vector3D gc_;    ///< unit vector of the centre, lifted by refraction
  Vector3D east_;  ///< in the plane, 90 degrees from the centre; very nearly a unit vector
  double gc_max_angle_ = 0;  ///< radians, 0 to pi/2: tilt of the plane's axis to the horizon
  double gc_max_angle_azimuth_ = 0;  ///< radians, 0 up to 2 pi: azimuth of the highest point
  double gc_angle_ = 0;  ///< gc_max_angle_, negative when the highest point is to the left of
                         ///< the plane's foot that is nearer to the centre
};

}  // namespace zenivo
