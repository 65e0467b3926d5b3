#include "planner/DayEvents.h"

#include <memory>

#include "engine/MoonPhase.h"
#include "planner/BodyLines.h"
#include "planner/BodyPath.h"
#include "planner/DaySearch.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

std::optional<BodyPath> pathOfDay(ephemeris::PtPlanet& body, bool isDrawn,
                                  const CelestialBodyEvent& event, const Calendar& calendar) {
  if (!isDrawn) return std::nullopt;
  const LocalDay day(Date::withTimeIntervalSinceReferenceDate(event.date));
  return positionPerHourForBody(body, day, event, calendar);
}

/// Makes room for the day after the last, or before the first.
constexpr auto kShiftLeft = [](auto& events) {
  events.erase(events.begin());
  events.emplace_back();
};
constexpr auto kShiftRight = [](auto& events) {
  events.pop_back();
  events.emplace(events.begin());
};

/// Makes the lines towards rise and set of one day; nullptr where the day has none.
template <class Event>
void drawEventLines(Event& event, GeodesicCurveMapManager* geodesics, const Coordinate* from,
                    bool withPoints) {
  const auto lineTo = [&](double mjd, double azimuth) -> std::shared_ptr<GeodesicLine> {
    if (geodesics == nullptr || from == nullptr || !drawEventAtMjd(mjd)) return nullptr;
    return geodesics->geodesicLineFrom(*from, azimuth);
  };
  event.riseLine = lineTo(event.mjdRise(), event.riseAzimuth);
  event.setLine = lineTo(event.mjdSet(), event.setAzimuth);
  GeodesicCurveMapManager* sampler = withPoints ? geodesics : nullptr;
  event.riseLinePositions = positionsOfLine(sampler, event.riseLine);
  event.setLinePositions = positionsOfLine(sampler, event.setLine);
}

}  // namespace

bool DayEvents::moveTo(const Where& where, Date moment, const MonthPhases& phases, DayPaths paths) {
  const Date midnight = dateWithStartDateTime(moment, where.calendar);
  const bool hasDays = !isEmpty() && where == where_;
  const auto isDay = [&](std::size_t slot) {
    return hasDays && sun_[slot].date == midnight.timeIntervalSinceReferenceDate();
  };
  if (isDay(kToday)) return false;

  const LocalDay today(midnight);
  const LocalDay yesterday = today.dayAfter(-1, where.calendar);
  const LocalDay tomorrow = today.dayAfter(1, where.calendar);
  where_ = where;
  sunBody_.setPosition(where.observer);
  moonBody_.setPosition(where.observer);
  if (isDay(kTomorrow)) {
    shift(kShiftLeft);
    search(tomorrow, kTomorrow, phases, paths);
  } else if (isDay(kYesterday)) {
    shift(kShiftRight);
    search(yesterday, kYesterday, phases, paths);
  } else {
    sun_.assign(3, {});
    moon_.assign(3, {});
    search(yesterday, kYesterday, phases, paths);
    search(tomorrow, kTomorrow, phases, paths);
    search(today, kToday, phases, paths);
  }
  sorter_.sortEventIntervalsSunEvents(sun_, moon_);
  return true;
}

template <class Shift>
void DayEvents::shift(Shift shiftArray) {
  forgetPhaseOfMoment();
  shiftArray(sun_);
  shiftArray(moon_);
}

void DayEvents::search(const LocalDay& day, std::size_t slot, const MonthPhases& phases,
                       DayPaths paths) {
  const Calendar& calendar = where_.calendar;
  const auto phase = phases.ofDay(day, calendar);
  sun_[slot] = sunEventOfDay(sunBody_, day, calendar);
  moon_[slot] = moonEventOfDay(moonBody_, day, phase ? &*phase : nullptr, calendar);
  sun_[slot].positionsPerHour = pathOfDay(sunBody_, paths.sun, sun_[slot], calendar);
  moon_[slot].positionsPerHour = pathOfDay(moonBody_, paths.moon, moon_[slot], calendar);
}

void DayEvents::clear() {
  sun_.clear();
  moon_.clear();
  sorter_.sortEventIntervalsSunEvents(sun_, moon_);
}

void DayEvents::takePhaseOfMoment(const SkyAtMoment& sky) {
  if (isEmpty()) return;
  MoonEvent& today = moon_[kToday];
  today.phaseIllumination =
      illuminationNearPhase(sky.moonPhase.phase_, sky.date->timeIntervalSinceReferenceDate(),
                            today.mjdPhase, today.phase);
  if (!today.hasPrincipalPhase()) today.phase = sky.moonPhase.moon_phase_type_;
}

void DayEvents::forgetPhaseOfMoment() {
  MoonEvent& today = moon_[kToday];
  today.phaseIllumination = 0;
  if (!today.hasPrincipalPhase()) today.phase = kNoMoonPhase;
}

void DayEvents::drawPaths(DayPaths paths) {
  for (SunEvent& event : sun_) {
    event.positionsPerHour = pathOfDay(sunBody_, paths.sun, event, where_.calendar);
  }
  for (MoonEvent& event : moon_) {
    event.positionsPerHour = pathOfDay(moonBody_, paths.moon, event, where_.calendar);
  }
}

void DayEvents::removePath(PlannerBody body) {
  if (body == PlannerBody::sun) {
    for (SunEvent& event : sun_) event.positionsPerHour.reset();
  } else {
    for (MoonEvent& event : moon_) event.positionsPerHour.reset();
  }
}

void DayEvents::drawLines(GeodesicCurveMapManager* geodesics, const Coordinate* from) {
  for (std::size_t day = 0; day < sun_.size(); ++day) {
    drawEventLines(sun_[day], geodesics, from, day == kToday);
    drawEventLines(moon_[day], geodesics, from, day == kToday);
  }
}

}  // namespace zenivo
