// The place from which an eclipse is watched.

#pragma once

#include "engine/PtPosition.h"

namespace zenivo {

/// The observer as the eclipse solvers see it.
struct EclipseObserver {
  /// From degrees (east positive) and metres.
  explicit EclipseObserver(const PtPosition& position);

  double latitude;   ///< radians
  double longitude;  ///< radians, positive to the west
  double altitude;   ///< metres
  /// Geocentric coordinates in Earth radii, toward the pole and the equator, on
  /// the ellipsoid that the published elements presume.
  double rhoSinPhi;
  double rhoCosPhi;
};

}  // namespace zenivo
