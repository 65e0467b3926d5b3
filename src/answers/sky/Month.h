// The Moon through a month.

#pragma once

#include <cstdint>
#include <vector>

#include "answers/common/Scene.h"
#include "foundation/Calendar.h"
#include "planner/MoonEvent.h"

namespace zenivo {

struct MonthQuestion {
  Scene scene;
  std::int64_t year = 0;
  int month = 1;
};

/// What belongs to a moment is that of noon.
struct MonthReport {
  struct Phase {
    std::int32_t phase = kNoMoonPhase;
    double mjd = 0;
  };
  struct Day {
    DateComponents date;
    MoonEvent moon;
  };

  MonthQuestion question;
  std::vector<Phase> phases;
  std::vector<Day> days;  ///< that the zone's calendar has
};

MonthReport answer(const MonthQuestion& question);
Json json(const MonthReport& report);

}  // namespace zenivo
