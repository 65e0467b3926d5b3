#include "planner/MonthPhases.h"

#include "time/DateEphemeris.h"
#include "time/LocalMonth.h"

namespace zenivo {

void MonthPhases::moveTo(Date moment, const Calendar& calendar) {
  const PtDateTime start = startOfMonthOfDate(moment, calendar);
  if (start_ == start) return;
  start_ = start;
  phases_ = phasesFromDate(start);
}

std::optional<PtMoonPhaseWithDate> MonthPhases::ofDay(const LocalDay& day,
                                                      const Calendar& calendar) const {
  const PtDateTime start = startOfMonthOfDate(day.date, calendar);
  const bool isListed = start_ == start && !phases_.empty();
  const std::vector<PtMoonPhaseWithDate> otherMonth =
      isListed ? std::vector<PtMoonPhaseWithDate>() : phasesFromDate(start);
  const PtMoonPhaseWithDate* phase =
      phaseForDayOfMonth(isListed ? phases_ : otherMonth, dayValue(day.date, calendar),
                         monthValue(day.date, calendar), calendar);
  return phase != nullptr ? std::optional(*phase) : std::nullopt;
}

}  // namespace zenivo
