#include "commands/sky/DayReport.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "answers/common/Session.h"
#include "engine/MoonlessHours.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

/// The unrounded moments of a type of event; a day can have two astronomical dusks.
std::array<double, 2> momentsOf(TimeIntervalEventType type, const SunEvent& sun,
                                const MoonEvent& moon) {
  using enum TimeIntervalEventType;
  switch (type) {
    case sunRise:
      return {sun.mjdRise(), kNotThisDay};
    case sunTransit:
      return {sun.mjdTransit(), kNotThisDay};
    case sunSet:
      return {sun.mjdSet(), kNotThisDay};
    case moonRise:
      return {moon.mjdRise(), kNotThisDay};
    case moonTransit:
      return {moon.mjdTransit(), kNotThisDay};
    case moonSet:
      return {moon.mjdSet(), kNotThisDay};
    case civilTwilightStart:
      return {sun.civilTwilight.mjdStart(), kNotThisDay};
    case civilTwilightEnd:
      return {sun.civilTwilight.mjdEnd(), kNotThisDay};
    case nauticalTwilightStart:
      return {sun.nauticalTwilight.mjdStart(), kNotThisDay};
    case nauticalTwilightEnd:
      return {sun.nauticalTwilight.mjdEnd(), kNotThisDay};
    case astronomicalTwilightStart:
      return {sun.astronomicalTwilight.mjdStart(), kNotThisDay};
    case astronomicalTwilightEnd:
      return {sun.astronomicalTwilight.mjdEnd(),
              sun.astronomicalTwilight2 ? sun.astronomicalTwilight2->mjdEnd() : kNotThisDay};
    case blueHourStart:
      return {sun.blueHour.mjdStart(), kNotThisDay};
    case blueHourEnd:
      return {sun.blueHour.mjdEnd(), kNotThisDay};
    case goldenHourStart:
      return {sun.goldenHour.mjdStart(), kNotThisDay};
    case goldenHourEnd:
      return {sun.goldenHour.mjdEnd(), kNotThisDay};
  }
  return {kNotThisDay, kNotThisDay};
}

double exactMoment(const TimeIntervalEventWithType& event, const SunEvent& sun,
                   const MoonEvent& moon) {
  for (const double mjd : momentsOf(event.type, sun, moon)) {
    if (drawEventAtMjd(mjd) && mjdToTimeInterval(mjd) == event.interval) return mjd;
  }
  return kNotThisDay;
}

bool isOfMoon(TimeIntervalEventType type) {
  using enum TimeIntervalEventType;
  return type == moonRise || type == moonTransit || type == moonSet;
}

double deltaTAt(double mjd) {
  return getDeltaT(ptDateTimeForDate(dateOfMjd(mjd)));
}

std::vector<DayEvent> eventsOf(const PlannerManager& planner) {
  const SunEvent& sun = *planner.getCurrentSunEvent();
  const MoonEvent& moon = *planner.getCurrentMoonEvent();
  const PtPosition observer = planner.getObserver()->getPtPosition();
  ephemeris::PtSun sunBody(observer);
  ephemeris::PtMoon moonBody(observer);
  std::vector<DayEvent> events;
  for (const TimeIntervalEventWithType& event : planner.getEventSorter().sortedEvents()) {
    const double mjd = exactMoment(event, sun, moon);
    ephemeris::PtPlanet& body =
        isOfMoon(event.type) ? static_cast<ephemeris::PtPlanet&>(moonBody) : sunBody;
    body.computePosition(true, mjd, deltaTAt(mjd));
    events.push_back({event.type, mjd, body.horizontal()});
  }
  // The session's list is in order to the minute.
  std::ranges::stable_sort(events, {}, &DayEvent::mjd);
  return events;
}

}  // namespace

DayReport computeDay(const Scene& scene, Date moment) {
  const Session session(scene, moment);
  const PlannerManager& planner = session.planner();
  const DateComponents day = Calendar(scene.zone).componentsFromDate(moment);
  DayReport report(scene, DayClock(day, scene.zone));
  report.sun = *planner.getCurrentSunEvent();
  report.moon = *planner.getCurrentMoonEvent();
  report.moonAge = static_cast<double>(moonAgeAt(moment, cachedCalendar()));
  report.milkyWay = planner.getCurrentMilkyWayEvent();
  report.events = eventsOf(planner);
  report.night = nightBeginningOnDay(planner);
  const PtPosition observer = planner.getObserver()->getPtPosition();
  ephemeris::PtSun sun(observer);
  ephemeris::PtMoon moon(observer);
  report.moonlessHours = moonlessHoursForNightAtDate(moment, sun, moon, cachedCalendar());
  return report;
}

std::vector<SkySample> sampleDay(const ZVLocation& location, const DayClock& day, int count) {
  const PtPosition observer = location.getPtPosition();
  ephemeris::PtSun sun(observer);
  ephemeris::PtMoon moon(observer);
  const double step = day.end().timeIntervalSinceDate(day.start()) / count;
  std::vector<SkySample> samples;
  for (int i = 0; i < count; ++i) {
    const Date moment = day.start().dateByAddingTimeInterval((i + 0.5) * step);
    const double mjd = modifiedJulianDay(moment);
    const double deltaT = deltaTAt(mjd);
    sun.computePosition(true, mjd, deltaT);
    moon.computePosition(true, mjd, deltaT);
    samples.push_back({sun.horizontal().elevation_, moon.horizontal().elevation_});
  }
  return samples;
}

}  // namespace zenivo::cli
