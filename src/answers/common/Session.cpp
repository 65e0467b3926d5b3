#include "answers/common/Session.h"

namespace zenivo {

Session::Session(const Scene& scene, Date moment) : planner_(settings_) {
  planner_.setCurrentTimeZone(scene.zone);
  planner_.setObserver(pinAt(scene.location));
  planner_.setCurrentDate(moment);
}

ZVObserver pinAt(const Location& location) {
  ZVObserver observer(Coordinate{location.latitude, location.longitude});
  observer.altitude = static_cast<float>(location.altitude);
  observer.altitudeAccuracy = kAltitudeSetManually;
  return observer;
}

PtPosition observerOf(const Location& location) {
  return PtPosition(location.latitude, location.longitude, location.altitude);
}

}  // namespace zenivo
