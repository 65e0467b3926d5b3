// When the Moon is new, half or full.

#pragma once

#include <cstdint>

#include "answers/common/Scene.h"
#include "engine/MoonPhases.h"
#include "foundation/Date.h"

namespace zenivo {

struct NextPhaseQuestion {
  Scene scene;
  Date moment;
  /// kNoMoonPhase for any; else one of the moment's own local day is passed over.
  std::int32_t phase = kNoMoonPhase;
  bool previous = false;  ///< the one before instead
};

struct NextPhaseReport {
  NextPhaseQuestion question;
  std::int32_t phase = kNoMoonPhase;
  double mjd = 0;
};

/// Throws InputError for years that the series of the phases does not reach.
NextPhaseReport answer(const NextPhaseQuestion& question);
Json json(const NextPhaseReport& report);

}  // namespace zenivo
