#include "planner/SunEvent.h"

#include <algorithm>

namespace zenivo {
namespace {

void addEventToArray(std::vector<LightTypeEvent>& array, bool isBegin, double mjd) {
  if (drawEventAtMjd(mjd)) array.push_back({isBegin, mjd});
}

}  // namespace

void SunEvent::addEvents(std::vector<LightTypeEvent>& inArray, LightType forLightType) const {
  const auto add = [&](double morningBegin, double morningEnd, double eveningBegin,
                       double eveningEnd) {
    addEventToArray(inArray, true, morningBegin);
    addEventToArray(inArray, false, morningEnd);
    addEventToArray(inArray, true, eveningBegin);
    addEventToArray(inArray, false, eveningEnd);
  };
  switch (forLightType) {
    case LightType::civil:
      return add(civilTwilight.mjdStart(), mjdRise(), mjdSet(), civilTwilight.mjdEnd());
    case LightType::nautical:
      return add(nauticalTwilight.mjdStart(), civilTwilight.mjdStart(), civilTwilight.mjdEnd(),
                 nauticalTwilight.mjdEnd());
    case LightType::astronomical:
      add(astronomicalTwilight.mjdStart(), nauticalTwilight.mjdStart(), nauticalTwilight.mjdEnd(),
          astronomicalTwilight.mjdEnd());
      if (astronomicalTwilight2) addEventToArray(inArray, false, astronomicalTwilight2->mjdEnd());
      return;
    case LightType::blueHour:
      return add(civilTwilight.mjdStart(), blueHour.mjdEnd(), blueHour.mjdStart(),
                 civilTwilight.mjdEnd());
    case LightType::goldenHour:
      return add(blueHour.mjdEnd(), goldenHour.mjdEnd(), goldenHour.mjdStart(),
                 blueHour.mjdStart());
  }
}

std::vector<LightTypeEvent> SunEvent::eventsForLightType(LightType lightType) const {
  std::vector<LightTypeEvent> events;
  addEvents(events, lightType);
  std::ranges::stable_sort(events, {}, &LightTypeEvent::mjd);
  return events;
}

bool SunEvent::lastsAllDay(LightType lightType) const {
  const auto between = [](double lowerLimit, double upperLimit) {
    return lowerLimit == kAlwaysAbove && upperLimit == kAlwaysBelow;
  };
  switch (lightType) {
    case LightType::civil:
      return between(civilTwilight.mjdStart(), mjdRise());
    case LightType::nautical:
      return between(nauticalTwilight.mjdStart(), civilTwilight.mjdStart());
    case LightType::astronomical:
      return between(astronomicalTwilight.mjdStart(), nauticalTwilight.mjdStart());
    case LightType::blueHour:
      return between(civilTwilight.mjdStart(), blueHour.mjdEnd());
    case LightType::goldenHour:
      return between(blueHour.mjdEnd(), goldenHour.mjdEnd());
  }
  return false;
}

std::optional<TwilightEvent> SunEvent::currentEventForLightType(
    LightType lightType, double atMjd, std::span<const LightTypeEvent> yesterdayEvents,
    std::span<const LightTypeEvent> tomorrowEvents, double mjdTodayAt0,
    double mjdTomorrowAt0) const {
  const std::vector<LightTypeEvent> events = eventsForLightType(lightType);
  if (events.empty() && !lastsAllDay(lightType)) return std::nullopt;

  // The day's limits on both sides of the moment.
  const auto after = std::ranges::upper_bound(events, atMjd, {}, &LightTypeEvent::mjd);
  const bool isFirst = after == events.begin();
  const bool isLast = after == events.end();
  if (!isFirst && !std::prev(after)->isBegin) return std::nullopt;
  if (!isLast && after->isBegin) return std::nullopt;

  double begin = mjdTodayAt0;
  if (!isFirst) {
    begin = std::prev(after)->mjd;
  } else if (!yesterdayEvents.empty() && yesterdayEvents.back().isBegin) {
    begin = yesterdayEvents.back().mjd;
  }
  double end = mjdTomorrowAt0;
  if (!isLast) {
    end = after->mjd;
  } else if (!tomorrowEvents.empty() && !tomorrowEvents.front().isBegin) {
    end = tomorrowEvents.front().mjd;
  }
  return TwilightEvent(begin, end);
}

}  // namespace zenivo
