// The day's events of Sun and Moon in time order, through which panels walk.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "planner/MoonEvent.h"
#include "planner/SunEvent.h"

namespace zenivo {

enum class TimeIntervalEventType {
  sunRise = 0,
  sunTransit = 1,
  sunSet = 2,
  moonRise = 3,
  moonTransit = 4,
  moonSet = 5,
  civilTwilightStart = 6,
  civilTwilightEnd = 7,
  nauticalTwilightStart = 8,
  nauticalTwilightEnd = 9,
  astronomicalTwilightStart = 10,
  astronomicalTwilightEnd = 11,
  blueHourStart = 12,    ///< in the evening
  blueHourEnd = 13,      ///< in the morning
  goldenHourStart = 14,  ///< in the evening
  goldenHourEnd = 15,    ///< in the morning
};

/// An event of the day at a moment in seconds since the reference date, on the nearest
/// whole minute, and the same moment as the search found it.
struct TimeIntervalEventWithType {
  double interval = 0;
  TimeIntervalEventType type = TimeIntervalEventType::sunRise;
  double mjd = kNotThisDay;  ///< unrounded

  /// The whole seconds from `other` to this event.  Events less than a second
  /// apart compare as equal; this is no order that could be sorted by.
  long compare(const TimeIntervalEventWithType& other) const;

  /// Whether a map shows the event: map type 1 leaves out the Moon, 2 the Sun's
  /// rise, transit and set, any other shows everything.
  bool isVisibleForMapType(int mapType) const;

  friend bool operator==(const TimeIntervalEventWithType&,
                         const TimeIntervalEventWithType&) = default;
};

/// The localisation key of an event type, in the table "Ephemeris".
std::string_view timeIntervalEventTypeKey(TimeIntervalEventType type);

/// The localised name of an event type.
std::string timeIntervalEventTypeToString(TimeIntervalEventType type);

enum class NearestEvent { before, after };

class TimeIntervalEventSorter {
 public:
  /// Collects and sorts the real events of the day, element 1 of each array
  /// (yesterday, today, tomorrow); of empty arrays there are none.
  void sortEventIntervalsSunEvents(std::span<const SunEvent> sunEvents,
                                   std::span<const MoonEvent> moonEvents);

  /// Events a second or more apart stand in time order.
  const std::vector<TimeIntervalEventWithType>& sortedEvents() const { return sortedEvents_; }

  /// The nearest event at or after, or at or before, the moment that a map of
  /// this type shows; the number of events when there is none.
  std::size_t indexOfNearestTimeInterval(double interval, NearestEvent beforeOrAfter,
                                         int type) const;

  /// That event and those that follow it (going the same way) at the same moment.
  std::vector<TimeIntervalEventWithType> searchEventAtInterval(double interval,
                                                               NearestEvent beforeOrAfter,
                                                               int type) const;

 private:
  void addEventToArray(double mjd, double eventInterval, TimeIntervalEventType eventType);
  void addTwilight(const TwilightEvent& twilight, TimeIntervalEventType start,
                   TimeIntervalEventType end);
  void addSunEvents(const SunEvent& event);
  void addMoonEvents(const MoonEvent& event);

  std::vector<TimeIntervalEventWithType> sortedEvents_;
};

}  // namespace zenivo
