#include "commands/sky/DayReport.h"

#include <algorithm>
#include <cmath>

#include "answers/common/Session.h"
#include "engine/MoonlessHours.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

bool isOfMoon(TimeIntervalEventType type) {
  using enum TimeIntervalEventType;
  return type == moonRise || type == moonTransit || type == moonSet;
}

double deltaTAt(double mjd) {
  return getDeltaT(ptDateTimeForDate(dateOfMjd(mjd)));
}

std::vector<DayEvent> eventsOf(const PlannerManager& planner) {
  const PtPosition observer = planner.getObserver()->getPtPosition();
  ephemeris::PtSun sunBody(observer);
  ephemeris::PtMoon moonBody(observer);
  std::vector<DayEvent> events;
  for (const TimeIntervalEventWithType& event : planner.getEventSorter().sortedEvents()) {
    ephemeris::PtPlanet& body =
        isOfMoon(event.type) ? static_cast<ephemeris::PtPlanet&>(moonBody) : sunBody;
    body.computePosition(true, event.mjd, deltaTAt(event.mjd));
    events.push_back({event.type, event.mjd, body.horizontal()});
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
