// When the Sun or the Moon stands in a direction.

#pragma once

#include "answers/common/Scene.h"
#include "find/FindSearch.h"

namespace zenivo {

struct FindQuestion {
  Scene scene;
  FindRequest wanted;
};

struct FindReport {
  FindQuestion question;
  FoundDirections found;
};

/// Throws InputError for a period beyond searchableYears.
FindReport answer(const FindQuestion& question, const GoOn& goOn);
Json json(const FindReport& report);

}  // namespace zenivo
