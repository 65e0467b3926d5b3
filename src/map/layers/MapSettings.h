// The state of the map in a planner session.

#pragma once

#include "map/layers/MapLayerState.h"

namespace zenivo {

/// `plannerMode` of the drone planner.
inline constexpr int kDronePlannerMode = 1;

/// Which layers the map shows and how, as on a first run until set otherwise.
struct MapSettings {
  int plannerMode = 0;  ///< 0 or kDronePlannerMode
  PlannerBodyLayerState sunLayer{{.isVisible = true}, 0, false};
  PlannerBodyLayerState moonLayer{{.isVisible = true}, 0, false};
  MapLayerState milkyWayLayer{.isVisible = true};
  PlannerShadowLayerState shadowLayer;
  MapLayerState twilightsLayer;
  EclipseMapLayerState eclipseLayer;
  MeteorShowerMapLayerState meteorShowerLayer;

  friend bool operator==(const MapSettings&, const MapSettings&) = default;
};

}  // namespace zenivo
