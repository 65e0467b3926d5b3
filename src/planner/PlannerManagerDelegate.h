// What a planning session tells its screen.

#pragma once

namespace zenivo {

/// Called on the main thread, after the session's results are complete.
class PlannerManagerDelegate {
 public:
  virtual ~PlannerManagerDelegate() = default;

  /// The events of the day are new.
  virtual void refreshRiseSetData() {}
  /// The bodies' positions are new.
  virtual void refreshCurrentPositionData() {}
  /// The Milky Way's night is new.
  virtual void refreshMilkyWayVisibilityData() {}
  /// The black pin's distance and bearing are new.
  virtual void refreshObstacleData() {}
  /// The local circumstances of the selected eclipse are new.
  virtual void refreshEclipseInfoData() {}
  /// A jump has set the moment, in seconds since the reference date.
  virtual void didJumpToTimeInterval(double /*timeInterval*/) {}
  /// The place has moved so far that a search for dates shown on screen no longer
  /// belongs to it.
  virtual void resetFindViews() {}
};

}  // namespace zenivo
