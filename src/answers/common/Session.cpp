#include "answers/common/Session.h"

namespace zenivo {
namespace {

PlannerSides sides() {
  PlannerSides sides;
  sides.leavesProcessZone = true;
  return sides;
}

}  // namespace

Session::Session(const Scene& scene, Date moment) : planner_(settings_, sides()) {
  planner_.setCurrentTimeZone(scene.zone);
  planner_.setObserver(ZVObserver(scene.location));
  planner_.setCurrentDate(moment);
}

}  // namespace zenivo
