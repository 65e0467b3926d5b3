#include "planner/TimeIntervalEventSorter.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "foundation/LocalizedString.h"

namespace zenivo {
namespace {

constexpr std::size_t kToday = 1;

}  // namespace

long TimeIntervalEventWithType::compare(const TimeIntervalEventWithType& other) const {
  return static_cast<long>(interval - other.interval);
}

bool TimeIntervalEventWithType::isVisibleForMapType(int mapType) const {
  const bool isOfMoon =
      type >= TimeIntervalEventType::moonRise && type <= TimeIntervalEventType::moonSet;
  if (mapType == 1) return !isOfMoon;
  if (mapType == 2) return type >= TimeIntervalEventType::moonRise;
  return true;
}

std::string_view timeIntervalEventTypeKey(TimeIntervalEventType type) {
  static constexpr auto kKeys = std::to_array<std::string_view>({
      "event_sun_rise",
      "event_sun_transit",
      "event_sun_set",
      "event_moon_rise",
      "event_moon_transit",
      "event_moon_set",
      "event_twilight_civil_begin",
      "event_twilight_civil_end",
      "event_twilight_nautical_begin",
      "event_twilight_nautical_end",
      "event_twilight_astronomical_begin",
      "event_twilight_astronomical_end",
      "event_blue_hour_begin",
      "event_blue_hour_end",
      "event_golden_hour_begin",
      "event_golden_hour_end",
  });
  return kKeys.at(static_cast<std::size_t>(type));
}

std::string timeIntervalEventTypeToString(TimeIntervalEventType type) {
  return localizedString(timeIntervalEventTypeKey(type), "Ephemeris");
}

void TimeIntervalEventSorter::addEventToArray(double mjd, double eventInterval,
                                              TimeIntervalEventType eventType) {
  if (drawEventAtMjd(mjd)) sortedEvents_.push_back({eventInterval, eventType, mjd});
}

void TimeIntervalEventSorter::addTwilight(const TwilightEvent& twilight,
                                          TimeIntervalEventType start, TimeIntervalEventType end) {
  addEventToArray(twilight.mjdStart(), twilight.startTimeInterval(), start);
  addEventToArray(twilight.mjdEnd(), twilight.endTimeInterval(), end);
}

void TimeIntervalEventSorter::addSunEvents(const SunEvent& event) {
  using enum TimeIntervalEventType;
  addEventToArray(event.mjdRise(), event.riseTimeInterval(), sunRise);
  addEventToArray(event.mjdTransit(), event.transitTimeInterval(), sunTransit);
  addEventToArray(event.mjdSet(), event.setTimeInterval(), sunSet);
  addTwilight(event.civilTwilight, civilTwilightStart, civilTwilightEnd);
  addTwilight(event.nauticalTwilight, nauticalTwilightStart, nauticalTwilightEnd);
  addTwilight(event.astronomicalTwilight, astronomicalTwilightStart, astronomicalTwilightEnd);
  if (event.astronomicalTwilight2) {
    addEventToArray(event.astronomicalTwilight2->mjdEnd(),
                    event.astronomicalTwilight2->endTimeInterval(), astronomicalTwilightEnd);
  }
  addTwilight(event.blueHour, blueHourStart, blueHourEnd);
  addTwilight(event.goldenHour, goldenHourStart, goldenHourEnd);
}

void TimeIntervalEventSorter::addMoonEvents(const MoonEvent& event) {
  using enum TimeIntervalEventType;
  addEventToArray(event.mjdRise(), event.riseTimeInterval(), moonRise);
  addEventToArray(event.mjdTransit(), event.transitTimeInterval(), moonTransit);
  addEventToArray(event.mjdSet(), event.setTimeInterval(), moonSet);
}

void TimeIntervalEventSorter::sortEventIntervalsSunEvents(std::span<const SunEvent> sunEvents,
                                                          std::span<const MoonEvent> moonEvents) {
  sortedEvents_.clear();
  if (sunEvents.size() > kToday) addSunEvents(sunEvents[kToday]);
  if (moonEvents.size() > kToday) addMoonEvents(moonEvents[kToday]);
  // compare() tells apart only what a second separates, and is then of one mind
  // with the exact order, which unlike it is transitive.
  std::ranges::stable_sort(sortedEvents_, {}, &TimeIntervalEventWithType::interval);
}

std::size_t TimeIntervalEventSorter::indexOfNearestTimeInterval(double interval,
                                                                NearestEvent beforeOrAfter,
                                                                int type) const {
  const auto isWanted = [&](const TimeIntervalEventWithType& event) {
    const bool isOnItsSide = beforeOrAfter == NearestEvent::after ? event.interval >= interval
                                                                  : event.interval <= interval;
    return isOnItsSide && event.isVisibleForMapType(type);
  };
  const std::size_t count = sortedEvents_.size();
  if (beforeOrAfter == NearestEvent::after) {
    return static_cast<std::size_t>(std::ranges::find_if(sortedEvents_, isWanted) -
                                    sortedEvents_.begin());
  }
  for (std::size_t i = count; i > 0; --i) {
    if (isWanted(sortedEvents_[i - 1])) return i - 1;
  }
  return count;
}

std::vector<TimeIntervalEventWithType> TimeIntervalEventSorter::searchEventAtInterval(
    double interval, NearestEvent beforeOrAfter, int type) const {
  std::vector<TimeIntervalEventWithType> found;
  const std::size_t step = beforeOrAfter == NearestEvent::after ? 1 : std::size_t(-1);
  // Backward, the index wraps around below 0 and so leaves the array, too.
  for (std::size_t i = indexOfNearestTimeInterval(interval, beforeOrAfter, type);
       i < sortedEvents_.size() &&
       (found.empty() || sortedEvents_[i].interval == found.front().interval);
       i += step) {
    found.push_back(sortedEvents_[i]);
  }
  return found;
}

}  // namespace zenivo
