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
  // The list of the month in which the day before lies holds the day's phase also
  // where rounding carries a phase over the midnight between two months.
  const PtDateTime start = startOfMonthOfDate(day.dayAfter(-1, calendar).date, calendar);
  const bool isListed = start_ == start && !phases_.empty();
  const std::vector<PtMoonPhaseWithDate> otherMonth =
      isListed ? std::vector<PtMoonPhaseWithDate>() : phasesFromDate(start);
  const PtMoonPhaseWithDate* phase =
      phaseForDayOfMonth(isListed ? phases_ : otherMonth, dayValue(day.date, calendar),
                         monthValue(day.date, calendar), calendar);
  return phase != nullptr ? std::optional(*phase) : std::nullopt;
}

}  // namespace zenivo
