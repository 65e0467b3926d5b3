// When the stars have the sky for themselves.

#pragma once

#include "answers/common/Scene.h"
#include "foundation/Date.h"
#include "foundation/Progress.h"
#include "planner/DarkNight.h"

namespace zenivo {

struct NextDarkNightQuestion {
  Scene scene;
  Date moment;
  DarkNightWish wish;
};

struct NextDarkNightReport {
  NextDarkNightQuestion question;
  DarkNightSearch search;
};

NextDarkNightReport answer(const NextDarkNightQuestion& question, const GoOn& goOn);
Json json(const NextDarkNightReport& report);

}  // namespace zenivo
