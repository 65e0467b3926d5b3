// When the galactic centre is seen.

#pragma once

#include <optional>

#include "answers/common/Scene.h"
#include "engine/NextMilkyWay.h"
#include "foundation/Date.h"

namespace zenivo {

struct NextMilkyWayQuestion {
  Scene scene;
  Date moment;
};

struct NextMilkyWayReport {
  NextMilkyWayQuestion question;
  std::optional<MilkyWaySight> sight;
};

NextMilkyWayReport answer(const NextMilkyWayQuestion& question);
Json json(const NextMilkyWayReport& report);

}  // namespace zenivo
