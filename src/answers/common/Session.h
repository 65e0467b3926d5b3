// A planner session for one answer.

#pragma once

#include "answers/common/Scene.h"
#include "foundation/UserDefaults.h"
#include "planner/PlannerManager.h"

namespace zenivo {

/// A session put at a place, zone and moment, with everything computed.  Its
/// settings live in memory: nothing that a user has saved is read or written, and the zone of the
/// process stays as it is.
class Session {
 public:
  Session(const Scene& scene, Date moment);

  PlannerManager& planner() { return planner_; }
  const PlannerManager& planner() const { return planner_; }

 private:
  UserDefaults settings_;  // before the planner, which refers to it
  PlannerManager planner_;
};

}  // namespace zenivo
