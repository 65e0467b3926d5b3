// A night's darkness, and what the Moon leaves of it.

#pragma once

#include <optional>
#include <span>
#include <vector>

#include "engine/PtPosition.h"
#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/Progress.h"
#include "planner/SunEvent.h"

namespace zenivo {

/// A stretch of time, mjd.
struct TimeSpan {
  double start = 0;
  double end = 0;

  double hours() const { return (end - start) * 24; }
};

/// The Sun is below -18 degrees from dusk to dawn.
struct DarkNight {
  TimeSpan darkness;
  std::vector<TimeSpan> moonless;  ///< within the darkness, with the Moon down, in time order

  double moonlessHours() const;
};

/// The night that begins on the middle one of three days of the calendar, or the one that
/// ends on it; nullopt when it does not get dark.  In a polar night, dark at noon, too, noon
/// bounds it.
std::optional<DarkNight> nightBeginningOnDay(std::span<const SunEvent, 3> days,
                                             const PtPosition& observer, const Calendar& calendar);
std::optional<DarkNight> nightEndingOnDay(std::span<const SunEvent, 3> days,
                                          const PtPosition& observer, const Calendar& calendar);

/// What makes a night dark enough: at least so many hours without Sun and Moon, or when it
/// is not told how many, a night of an hour or more that the Moon leaves alone from dusk to
/// dawn.
struct DarkNightWish {
  std::optional<double> hours;

  bool isMetBy(const DarkNight& night) const;
};

/// The night that begins in the evening of a local day.
struct FoundDarkNight {
  Date day;
  DarkNight night;
};

struct DarkNightSearch {
  std::optional<FoundDarkNight> found;
  bool isComplete = true;  ///< false when it was stopped before it came to an end
};

/// How many nights a search looks at: those of a year and of the Moon's cycle beyond it.
inline constexpr int kMostDarkNights = 400;

/// The next night that meets the wish, that in progress included with what is left of it.
DarkNightSearch nextDarkNight(const PtPosition& observer, const Calendar& calendar, Date moment,
                              const DarkNightWish& wish, const GoOn& goOn);

}  // namespace zenivo
