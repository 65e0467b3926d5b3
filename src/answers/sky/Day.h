// The day of light at a place.

#pragma once

#include <optional>
#include <vector>

#include "answers/common/Scene.h"
#include "engine/MilkyWayEvent.h"
#include "engine/PtPolar.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "planner/DarkNight.h"
#include "planner/MoonEvent.h"
#include "planner/SunEvent.h"
#include "planner/TimeIntervalEventSorter.h"

namespace zenivo {

/// The local day of `moment`; what belongs to one moment and not to the day (the Moon's
/// illumination and age, which night's Milky Way) is that of `moment`.
struct DayQuestion {
  Scene scene;
  Date moment;
};

/// An event with its unrounded moment and where its body stands then.
struct DayEvent {
  TimeIntervalEventType type = TimeIntervalEventType::sunRise;
  double mjd = 0;
  PtPolar position;
};

struct DayReport {
  DayQuestion question;
  DateComponents date;
  SunEvent sun;
  MoonEvent moon;
  double moonAge = 0;  ///< days
  MilkyWayEvent milkyWay;
  std::vector<DayEvent> events;    ///< in time order
  double moonlessHours = 0;        ///< of the night that begins on the day
  std::optional<DarkNight> night;  ///< that night; nullopt when it does not get dark
};

DayReport answer(const DayQuestion& question);
Json json(const DayReport& report);

/// Elevations of Sun and Moon at one moment, degrees.
struct SkySample {
  double sunElevation = 0;
  double moonElevation = 0;
};

/// Those of the local day of a question, in the middle of `count` equal parts of it.
std::vector<SkySample> sampleDay(const DayQuestion& question, int count);

}  // namespace zenivo
