// The map on the screen, as lines need it.

#pragma once

namespace zenivo {

struct MapView {
  double width = 0;  ///< of the frame, points
  double height = 0;
  double zoom = 0;          ///< of the spherical Mercator map; 0 shows the Earth on 256 points
  double viewingAngle = 0;  ///< tilt from straight down, degrees
};

}  // namespace zenivo
