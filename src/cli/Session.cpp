#include "cli/Session.h"

namespace zenivo::cli {

Session::Session(const Scene& scene, Date moment) : planner_(settings_) {
  ZVObserver observer(Coordinate{scene.location.latitude, scene.location.longitude});
  observer.altitude = static_cast<float>(scene.location.altitude);
  observer.altitudeAccuracy = kAltitudeSetManually;
  planner_.setCurrentTimeZone(scene.zone);
  planner_.setObserver(observer);
  planner_.setCurrentDate(moment);
}

PtPosition observerOf(const Location& location) {
  return PtPosition(location.latitude, location.longitude, location.altitude);
}

}  // namespace zenivo::cli
