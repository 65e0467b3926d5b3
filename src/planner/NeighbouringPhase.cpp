#include "planner/NeighbouringPhase.h"

#include <algorithm>
#include <vector>

#include "time/DateEphemeris.h"
#include "time/LocalMonth.h"

namespace zenivo {

std::optional<PtMoonPhaseWithDate> neighbouringPhase(Date date, bool forward,
                                                     const Calendar& calendar, std::int32_t phase) {
  const auto qualifies = [&](const PtMoonPhaseWithDate& candidate) {
    const Date moment = dateWithPtDateTime(candidate.date);
    if (forward ? moment <= date : moment >= date) return false;
    return phase == kNoMoonPhase ||
           (candidate.phase == phase &&
            !isDateSameDayAsDate(dateWithPtDateTime(candidate.date, true), date, calendar));
  };
  // A list reaches from the start of its month over nearly two lunations.  Two months
  // back there is a phase of each kind even when February has none.
  constexpr int kMonths = 2;
  for (int i = 0; i <= kMonths; ++i) {
    const std::vector<PtMoonPhaseWithDate> phases = phasesFromDate(startOfMonth(
        yearValue(date, calendar), monthValue(date, calendar) + (forward ? i : -i), calendar));
    if (forward) {
      const auto found = std::ranges::find_if(phases, qualifies);
      if (found != phases.end()) return *found;
    } else {
      const auto found = std::find_if(phases.rbegin(), phases.rend(), qualifies);
      if (found != phases.rend()) return *found;
    }
  }
  return std::nullopt;
}

}  // namespace zenivo
