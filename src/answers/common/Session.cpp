#include "answers/common/Session.h"

namespace zenivo {

Session::Session(const Scene& scene, Date moment) : planner_(settings_) {
  planner_.setCurrentTimeZone(scene.zone);
  planner_.setObserver(ZVObserver(scene.location));
  planner_.setCurrentDate(moment);
}

}  // namespace zenivo
