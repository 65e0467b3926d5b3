// A body's way through the sky of one day.

#pragma once

#include "answers/common/Scene.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "planner/BodyPathItem.h"

namespace zenivo {

enum class PathBody { sun, moon };

/// Of the local day of `moment`.
struct PathQuestion {
  Scene scene;
  Date moment;
  PathBody body = PathBody::sun;
};

struct PathReport {
  PathQuestion question;
  DateComponents date;
  BodyPath samples;  ///< empty for a body that stays down
};

PathReport answer(const PathQuestion& question);
Json json(const PathReport& report);

/// "rise", "set", or empty for a sample between them.
const char* eventOf(const BodyPathItem& sample);

}  // namespace zenivo
