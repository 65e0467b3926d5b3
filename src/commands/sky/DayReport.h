// The day of light at a place, computed.

#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "commands/common/SceneOptions.h"
#include "commands/sky/DarkNight.h"
#include "commands/sky/DayPicture.h"
#include "engine/MilkyWayEvent.h"
#include "engine/PtPolar.h"
#include "planner/MoonEvent.h"
#include "planner/SunEvent.h"
#include "planner/TimeIntervalEventSorter.h"

namespace zenivo::cli {

/// An event with its unrounded moment and where its body stands then.
struct DayEvent {
  TimeIntervalEventType type = TimeIntervalEventType::sunRise;
  double mjd = 0;
  PtPolar position;
};

struct DayReport {
  DayReport(Scene theScene, DayClock theClock)
      : scene(std::move(theScene)), clock(std::move(theClock)) {}

  Scene scene;
  DayClock clock;
  SunEvent sun;
  MoonEvent moon;
  double moonAge = 0;  ///< days, at the session's moment
  MilkyWayEvent milkyWay;
  std::vector<DayEvent> events;    ///< in time order
  double moonlessHours = 0;        ///< of the night that begins on the day
  std::optional<DarkNight> night;  ///< that night; nullopt when it does not get dark
};

/// The local day of `moment`; what belongs to one moment and not to the day (the Moon's
/// illumination and age, which night's Milky Way) is that of `moment`.
DayReport computeDay(const Scene& scene, Date moment);

/// Elevations over a day, in the middle of `count` equal parts.
std::vector<SkySample> sampleDay(const ZVLocation& location, const DayClock& day, int count);

/// The day as JSON; docs/json.md has the keys.
Json dayJson(const DayReport& day);

/// The day as tables, with a picture of `samples` unless they are empty.
std::string dayText(const DayReport& day, const std::vector<SkySample>& samples,
                    const Terminal& terminal);

}  // namespace zenivo::cli
