// What each layer of the map shows.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zenivo {

struct MapLayerState {
  bool isVisible = false;

  friend bool operator==(const MapLayerState&, const MapLayerState&) = default;
};

/// The Sun or the Moon.
struct PlannerBodyLayerState : MapLayerState {
  int mode = 0;                      ///< 0 to 2; the day's path is drawn unless 0
  bool showAngularDiameter = false;  ///< with lines to both limbs of the disk

  friend bool operator==(const PlannerBodyLayerState&, const PlannerBodyLayerState&) = default;
};

struct PlannerShadowLayerState : MapLayerState {
  float objectHeight = 100;  ///< of what throws the shadow, metres

  friend bool operator==(const PlannerShadowLayerState&, const PlannerShadowLayerState&) = default;
};

struct EclipseMapLayerState : MapLayerState {
  std::optional<std::string> selectedEclipse;  ///< its name

  friend bool operator==(const EclipseMapLayerState&, const EclipseMapLayerState&) = default;
};

struct MeteorShowerMapLayerState : MapLayerState {
  std::int64_t selectedMeteorShowerId = 0;
  std::optional<std::string> selectedMeteorShowerName;
  std::int64_t selectedYear = 0;

  friend bool operator==(const MeteorShowerMapLayerState&,
                         const MeteorShowerMapLayerState&) = default;
};

}  // namespace zenivo
