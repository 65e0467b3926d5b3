#include "answers/sky/Day.h"

#include <algorithm>
#include <span>

#include "answers/common/Session.h"
#include "engine/MoonlessHours.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

double deltaTAt(double mjd) {
  return getDeltaT(ptDateTimeForDate(dateOfMjd(mjd)));
}

bool isOfMoon(TimeIntervalEventType type) {
  using enum TimeIntervalEventType;
  return type == moonRise || type == moonTransit || type == moonSet;
}

std::vector<DayEvent> eventsOf(const PlannerManager& planner, const PtPosition& observer) {
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

class DayJsonWriter {
 public:
  explicit DayJsonWriter(const DayReport& day) : day_(day), scene_(day.question.scene) {}

  Json json() const {
    return {{"date", isoDate(day_.date)},
            {"zone", scene_.zone.name()},
            {"place", placeJson(scene_.location)},
            {"sun", sun()},
            {"moon", moon()},
            {"milkyWay", milkyWay()},
            {"events", events()},
            {"intervals", intervals()},
            {"moonlessHours", day_.moonlessHours}};
  }

 private:
  Json moment(double mjd) const { return momentJson(mjd, scene_.zone); }

  Json span(const TwilightEvent& twilight) const {
    return {{"start", moment(twilight.mjdStart())}, {"end", moment(twilight.mjdEnd())}};
  }

  /// Where there is no such moment there is no angle, either.
  static Json angleAt(double mjd, double degrees) {
    return drawEventAtMjd(mjd) ? Json(degrees) : Json(nullptr);
  }

  Json body(const CelestialBodyEvent& event) const {
    return {{"rise", moment(event.mjdRise())},
            {"transit", moment(event.mjdTransit())},
            {"set", moment(event.mjdSet())},
            {"riseAzimuth", angleAt(event.mjdRise(), event.riseAzimuth)},
            {"setAzimuth", angleAt(event.mjdSet(), event.setAzimuth)}};
  }

  Json sun() const {
    const SunEvent& event = day_.sun;
    Json json = body(event);
    json["civilTwilight"] = span(event.civilTwilight);
    json["nauticalTwilight"] = span(event.nauticalTwilight);
    json["astronomicalTwilight"] = span(event.astronomicalTwilight);
    json["astronomicalTwilight"]["secondEnd"] =
        moment(event.astronomicalTwilight2 ? event.astronomicalTwilight2->mjdEnd() : kAlwaysBelow);
    json["blueHour"] = span(event.blueHour);
    json["goldenHour"] = span(event.goldenHour);
    return json;
  }

  Json moon() const {
    const MoonEvent& event = day_.moon;
    Json json = body(event);
    json["phase"] = event.phase;
    json["phaseTime"] = moment(event.mjdPhase);
    json["illumination"] = event.phaseIllumination;
    json["supermoon"] = event.isSupermoon;
    return json;
  }

  Json milkyWay() const {
    const MilkyWayEvent& event = day_.milkyWay;
    const double from = event.mjdVisibilityFrom;
    const double to = event.mjdVisibilityTo;
    return {{"rise", moment(event.mjdRise())},
            {"set", moment(event.mjdSet())},
            {"riseAzimuth", angleAt(event.mjdRise(), event.riseAzimuth)},
            {"setAzimuth", angleAt(event.mjdSet(), event.setAzimuth)},
            {"visibleFrom", moment(from)},
            {"visibleTo", moment(to)},
            {"visibleFromAzimuth", angleAt(from, event.visibilityFromAzimuth)},
            {"visibleFromElevation", angleAt(from, event.visibilityFromElevation)},
            {"visibleToAzimuth", angleAt(to, event.visibilityToAzimuth)},
            {"visibleToElevation", angleAt(to, event.visibilityToElevation)}};
  }

  Json events() const {
    Json list = Json::array();
    for (const DayEvent& event : day_.events) {
      list.push_back({{"type", static_cast<int>(event.type)},
                      {"key", timeIntervalEventTypeKey(event.type)},
                      {"text", timeIntervalEventTypeToString(event.type)},
                      {"time", moment(event.mjd)}});
    }
    return list;
  }

  Json intervals() const {
    const auto spans = [&](LightType light) {
      Json list = Json::array();
      for (const TwilightEvent& twilight : day_.sun.spansForLightType(light)) {
        list.push_back(span(twilight));
      }
      return list;
    };
    return {{"civil", spans(LightType::civil)},
            {"nautical", spans(LightType::nautical)},
            {"astronomical", spans(LightType::astronomical)},
            {"blueHour", spans(LightType::blueHour)},
            {"goldenHour", spans(LightType::goldenHour)}};
  }

  const DayReport& day_;
  const Scene& scene_;
};

}  // namespace

DayReport answer(const DayQuestion& question) {
  const Session session(question.scene, question.moment);
  const PlannerManager& planner = session.planner();
  const Calendar& calendar = planner.calendar();
  const PtPosition observer = question.scene.location.getPtPosition();
  ephemeris::PtSun sun(observer);
  ephemeris::PtMoon moon(observer);
  DayReport report;
  report.question = question;
  report.date = calendar.componentsFromDate(question.moment);
  report.sun = *planner.getCurrentSunEvent();
  report.moon = *planner.getCurrentMoonEvent();
  report.moonAge = static_cast<double>(moonAgeAt(question.moment, calendar));
  report.milkyWay = planner.getCurrentMilkyWayEvent();
  report.events = eventsOf(planner, observer);
  report.night =
      nightBeginningOnDay(std::span<const SunEvent, 3>(planner.sunEvents()), observer, calendar);
  report.moonlessHours = moonlessHoursForNightAtDate(question.moment, sun, moon, calendar);
  return report;
}

Json json(const DayReport& report) {
  return DayJsonWriter(report).json();
}

std::vector<SkySample> sampleDay(const DayQuestion& question, int count) {
  const Calendar calendar(question.scene.zone);
  const PtPosition observer = question.scene.location.getPtPosition();
  ephemeris::PtSun sun(observer);
  ephemeris::PtMoon moon(observer);
  const DateComponents day = calendar.componentsFromDate(question.moment);
  const auto midnight = [&](int days) {
    return calendar.dateFromComponents(
        {.year = day.year, .month = day.month, .day = day.day + days});
  };
  const Date start = midnight(0);
  const double step = midnight(1).timeIntervalSinceDate(start) / count;
  std::vector<SkySample> samples;
  for (int i = 0; i < count; ++i) {
    const double mjd = modifiedJulianDay(start.dateByAddingTimeInterval((i + 0.5) * step));
    const double deltaT = deltaTAt(mjd);
    sun.computePosition(true, mjd, deltaT);
    moon.computePosition(true, mjd, deltaT);
    samples.push_back({sun.horizontal().elevation_, moon.horizontal().elevation_});
  }
  return samples;
}

}  // namespace zenivo
