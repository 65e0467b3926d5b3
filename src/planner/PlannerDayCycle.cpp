// The three local days around the session's moment.

#include "planner/BodyPath.h"
#include "planner/NeighbouringPhase.h"
#include "planner/PlannerManager.h"
#include "time/DateEphemeris.h"
#include "time/LocalMonth.h"

namespace zenivo {
namespace {

std::optional<BodyPath> pathOfDay(ephemeris::PtPlanet& body, const PlannerBodyLayerState& layer,
                                  const CelestialBodyEvent& event, const Calendar& calendar) {
  if (layer.mode == 0) return std::nullopt;
  const LocalDay day(Date::withTimeIntervalSinceReferenceDate(event.date));
  return positionPerHourForBody(body, day, event, calendar);
}

template <class Event>
void shiftLeftArray(std::vector<Event>& events) {
  events.erase(events.begin());
  events.emplace_back();
}

template <class Event>
void shiftRightArray(std::vector<Event>& events) {
  events.pop_back();
  events.emplace(events.begin());
}

}  // namespace

void PlannerManager::recalculateRiseSetValuesNewDate(Date newDate, std::optional<Date> oldDate) {
  const LocalDay today(newDate), yesterday = today.dayAfter(-1, calendar_),
                                 tomorrow = today.dayAfter(1, calendar_);
  const bool hasEvents = oldDate && !sunEvents_.empty();
  if (hasEvents && *oldDate == newDate) return;
  // A day may be so short that a change of less than 24 hours leaps over it.
  if (hasEvents && *oldDate == yesterday.date) {
    forgetPhaseOfToday();
    shiftLeftArray(sunEvents_);
    shiftLeftArray(moonEvents_);
    calculateRiseSetForDate(tomorrow, kTomorrow);
  } else if (hasEvents && *oldDate == tomorrow.date) {
    forgetPhaseOfToday();
    shiftRightArray(sunEvents_);
    shiftRightArray(moonEvents_);
    calculateRiseSetForDate(yesterday, kYesterday);
  } else {
    initEventArrays();
    calculateRiseSetForDate(yesterday, kYesterday);
    calculateRiseSetForDate(tomorrow, kTomorrow);
    calculateRiseSetForDate(today, kToday);
  }
  nightDataIsStale_ = true;
  recalculatePositionsForGeodesicRiseSetLines();
}

void PlannerManager::initEventArrays() {
  sunEvents_.assign(3, {});
  moonEvents_.assign(3, {});
}

void PlannerManager::resetEventArrays() {
  sunEvents_.clear();
  moonEvents_.clear();
  sortEvents();
}

void PlannerManager::calculateRiseSetForDate(const LocalDay& day, std::size_t forEvent) {
  const auto phase = phaseOfDay(day);
  SunEvent& sunEvent = sunEvents_[forEvent];
  MoonEvent& moonEvent = moonEvents_[forEvent];
  sunEvent = sunEventOfDay(*sun_, day, calendar_);
  sunEvent.positionsPerHour = pathOfDay(*sun_, mapSettings_.sunLayer, sunEvent, calendar_);
  moonEvent = moonEventOfDay(*moon_, day, phase ? &*phase : nullptr, calendar_);
  moonEvent.positionsPerHour = pathOfDay(*moon_, mapSettings_.moonLayer, moonEvent, calendar_);
  recreateRiseSetLines(forEvent);
}

void PlannerManager::refreshBodyPaths() {
  for (SunEvent& event : sunEvents_) {
    event.positionsPerHour = pathOfDay(*sun_, mapSettings_.sunLayer, event, calendar_);
  }
  for (MoonEvent& event : moonEvents_) {
    event.positionsPerHour = pathOfDay(*moon_, mapSettings_.moonLayer, event, calendar_);
  }
}

void PlannerManager::removePathForBody(PlannerBody body) {
  if (body == PlannerBody::sun) {
    for (SunEvent& event : sunEvents_) event.positionsPerHour.reset();
  } else {
    for (MoonEvent& event : moonEvents_) event.positionsPerHour.reset();
  }
}

void PlannerManager::plannerDidChangeLayersVisiblity() {
  refreshBodyPaths();
  updateEclipseData();
  calculatePositionsForDate(currentDate_);
}

void PlannerManager::sortEvents() {
  eventSorter_.sortEventIntervalsSunEvents(sunEvents_, moonEvents_);
}

void PlannerManager::recalculateMonthPhases() {
  moonMonthStart_ = startOfMonthOfDate(currentDate_, calendar_);
  moonMonthPhases_ = phasesFromDate(moonMonthStart_);
}

const PtMoonPhaseWithDate* PlannerManager::getPhaseForDay(int day, int ofMonth) const {
  return phaseForDayOfMonth(moonMonthPhases_, day, ofMonth, calendar_);
}

std::optional<PtMoonPhaseWithDate> PlannerManager::phaseOfDay(const LocalDay& day) const {
  // The list of the month in which the day before lies holds the day's phase also
  // where rounding carries a phase over the midnight between two months.
  const PtDateTime start = startOfMonthOfDate(day.dayAfter(-1, calendar_).date, calendar_);
  const bool isListed = start == moonMonthStart_ && !moonMonthPhases_.empty();
  const std::vector<PtMoonPhaseWithDate> otherMonth =
      isListed ? std::vector<PtMoonPhaseWithDate>() : phasesFromDate(start);
  const PtMoonPhaseWithDate* phase =
      phaseForDayOfMonth(isListed ? moonMonthPhases_ : otherMonth, dayValue(day.date, calendar_),
                         monthValue(day.date, calendar_), calendar_);
  return phase != nullptr ? std::optional(*phase) : std::nullopt;
}

}  // namespace zenivo
