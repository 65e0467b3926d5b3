// A year of the Moon's distances.

#pragma once

#include <cstdint>

#include "answers/common/Scene.h"
#include "engine/MoonDistancesYear.h"

namespace zenivo {

struct MoonYearQuestion {
  Scene scene;
  std::int64_t year = 0;  ///< of the zone
};

struct MoonYearReport {
  MoonYearQuestion question;
  MoonDistancesYear distances;
};

MoonYearReport answer(const MoonYearQuestion& question);
Json json(const MoonYearReport& report);

}  // namespace zenivo
