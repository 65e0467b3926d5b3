// Jumps of the session's moment from phase to phase of the Moon.

#include "planner/NeighbouringPhase.h"
#include "planner/PlannerManager.h"
#include "time/DateEphemeris.h"

namespace zenivo {

void PlannerManager::jumpToNextMoonPhase() {
  jumpToMoonPhase(true);
}

void PlannerManager::jumpToPreviousMoonPhase() {
  jumpToMoonPhase(false);
}

void PlannerManager::jumpToNextNewMoonAtTheEndOfAstronomicalTwilight() {
  jumpToNextPreviousNewMoonAtTheEndOfAstronomicalTwilight(true);
}

void PlannerManager::jumpToPreviousNewMoonAtTheEndOfAstronomicalTwilight() {
  jumpToNextPreviousNewMoonAtTheEndOfAstronomicalTwilight(false);
}

std::optional<Date> PlannerManager::getPhaseNextOrPrevious(bool forward,
                                                           std::int32_t withPhase) const {
  const auto phase = neighbouringPhase(currentDate_, forward, calendar_, withPhase);
  if (!phase) return std::nullopt;
  return dateWithPtDateTime(phase->date);
}

void PlannerManager::jumpToMoonPhase(bool forward) {
  const std::optional<Date> date = getPhaseNextOrPrevious(forward, kNoMoonPhase);
  if (!date) return;
  resetEventArrays();
  setCurrentDate(*date);
  notify(&PlannerManagerDelegate::didJumpToTimeInterval,
         currentDate_.timeIntervalSinceReferenceDate());
}

void PlannerManager::jumpToNextPreviousNewMoonAtTheEndOfAstronomicalTwilight(bool forward) {
  const std::optional<Date> newMoon = getPhaseNextOrPrevious(forward, kNewMoon);
  if (!newMoon) return;
  resetEventArrays();
  setCurrentDate(*newMoon);
  const double dusk = sunEvents_[kToday].astronomicalTwilight.mjdEnd();
  if (drawEventAtMjd(dusk)) setCurrentDate(dateFromModifiedJulianDay(dusk));
  notify(&PlannerManagerDelegate::didJumpToTimeInterval,
         currentDate_.timeIntervalSinceReferenceDate());
}

}  // namespace zenivo
