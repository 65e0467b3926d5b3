// Finds phases of the Moon by local days.

#pragma once

#include <optional>

#include "engine/MoonPhases.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"

namespace zenivo {

/// The first principal phase after a moment (forward), or the last before it; moments
/// of phases are taken to the nearest minute.  With a phase code the first or last of
/// that kind, and one of the moment's own local day is passed over.  Nullopt only in
/// years that the series of the phases does not reach.
std::optional<PtMoonPhaseWithDate> neighbouringPhase(Date date, bool forward,
                                                     const Calendar& calendar,
                                                     std::int32_t phase = kNoMoonPhase);

}  // namespace zenivo
