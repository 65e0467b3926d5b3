// A day of a middle latitude for tests of what is told of a day.

#pragma once

#include "planner/SunEvent.h"

namespace zenivo::testing {

inline constexpr double kMidnight = 60000;  // mjd of 2023-02-25

/// A moment of the day.
inline double at(int hour, double minute = 0) {
  return kMidnight + (hour + minute / 60) / 24;
}

inline SunEvent plainDay() {
  SunEvent day;
  day.astronomicalTwilight = TwilightEvent(at(4), at(20));
  day.nauticalTwilight = TwilightEvent(at(4, 40), at(19, 20));
  day.civilTwilight = TwilightEvent(at(5, 20), at(18, 40));
  day.blueHour = TwilightEvent(at(18, 30), at(5, 30));
  day.goldenHour = TwilightEvent(at(17, 30), at(6, 30));
  day.setMjdRise(at(6));
  day.setMjdTransit(at(12));
  day.setMjdSet(at(18));
  return day;
}

}  // namespace zenivo::testing
