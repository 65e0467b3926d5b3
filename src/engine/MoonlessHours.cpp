#include "engine/MoonlessHours.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "engine/Night.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "foundation/Log.h"
#include "time/LocalDay.h"

namespace zenivo {
namespace {

using ephemeris::EventKind;
using ephemeris::PtMoon;
using ephemeris::PtSun;
using ephemeris::RiseSet;

bool isPolarDay(const LocalDay& day, PtSun& sun) {
  return sun.riseSet(EventKind::riseSet, day.mjdAt0, day.deltaT).rise == kAlwaysAbove;
}

/// Dusk in the second half of the day that ends at `nextMidnight`, or kAlwaysBelow.
double eveningDusk(const AstronomicalTwilight& twilight, double mjdAt0, double nextMidnight) {
  if (!drawEventAtMjd(twilight.end)) return kAlwaysBelow;
  const double dusk = std::max(twilight.end, twilight.end2, mjdIsBefore);
  return dusk < (mjdAt0 + nextMidnight) / 2.0 ? kAlwaysBelow : dusk;
}

/// Dusk has come by the day's noon, and no dawn after it: the polar night.
bool isDarkAtNoon(const NightDay& day) {
  const AstronomicalTwilight& twilight = day.twilight;
  const bool hasDuskAlone = drawEventAtMjd(twilight.end) && !drawEventAtMjd(twilight.start);
  return day.isDarkAllDay() || (hasDuskAlone && twilight.end < day.noon);
}

/// The night that begins in the evening of `day`.
std::optional<Night> nightOf(const LocalDay& day, const LocalDay& next, PtSun& sun,
                             const Calendar& calendar) {
  if (isPolarDay(day, sun) || isPolarDay(next, sun)) return std::nullopt;
  const NightDay today = nightDay(sun, day, calendar), tomorrow = nightDay(sun, next, calendar);
  const AstronomicalTwilight &first = today.twilight, &second = tomorrow.twilight;

  double start = eveningDusk(first, day.mjdAt0, next.mjdAt0);
  double end = tomorrow.isDarkAllDay() ? tomorrow.noon : second.start;
  if (isDarkAtNoon(today)) {
    start = today.noon;
    end = std::min(end, tomorrow.noon);
  } else if (drawEventAtMjd(start)) {
    // With a zone far from the place's own the Sun may rise in the evening.
    if (drawEventAtMjd(first.start) && first.start > start) end = first.start;
  } else {
    // Dusk after midnight, as in June half-way to the pole: the first day's dusk
    // is then that of the night before, and this night's is the second day's.
    start = second.end;
  }
  const Night night{start, end};
  if (!night.isDark()) {
    log(LogLevel::info, "Night start but no end");
    return std::nullopt;
  }
  return night;
}

/// The times that the Moon is up over two windows of 24 hours, `second` following
/// `first` without a gap.
std::vector<MoonRiseSet> moonUp(const RiseSet& first, const RiseSet& second) {
  std::vector<MoonRiseSet> up;
  addMoonRiseSets(up, first.rise, first.set);
  const bool upAtMidnight = !up.empty() && up.back().set == kNotThisDay;
  if (upAtMidnight && drawEventAtMjd(second.set)) {
    up.back().set = second.set;
    if (drawEventAtMjd(second.rise)) up.push_back({second.rise, kNotThisDay});
  } else {
    addMoonRiseSets(up, second.rise, second.set);
  }
  return up;
}

}  // namespace

double moonlessHoursForNightAtDate(Date date, PtSun& sun, PtMoon& moon, const Calendar& calendar) {
  const LocalDay day = LocalDay::of(date, calendar);
  const LocalDay next = day.dayAfter(1, calendar);
  const std::optional<Night> night = nightOf(day, next, sun, calendar);
  if (!night) return 0.0;

  const RiseSet first = moon.riseSet(EventKind::riseSet, day.mjdAt0, day.deltaT);
  if (first.rise == kAlwaysAbove) return 0.0;
  if (first.rise == kAlwaysBelow) return night->hours();
  // 24 hours on and not at the next midnight: where a clock change makes the day
  // 23 or 25 hours long, a crossing would be found twice or not at all.
  const RiseSet second = moon.riseSet(EventKind::riseSet, day.mjdAt0 + 1.0, next.deltaT);

  double moonless = night->hours();
  for (const MoonRiseSet& up : moonUp(first, second)) {
    moonless -= nightHoursAffectedWithMoon(up, night->dusk, night->dawn);
  }
  return std::max(moonless, 0.0);
}

double nightHoursAffectedWithMoon(const MoonRiseSet& moon, double nightStart, double nightEnd) {
  const double rise = moon.rise;
  const double set = moon.set;
  if (rise == kNotThisDay) {
    return set <= nightStart ? 0.0 : (std::min(set, nightEnd) - nightStart) * 24.0;
  }
  if (set == kNotThisDay) {
    return rise > nightEnd ? 0.0 : (nightEnd - std::max(rise, nightStart)) * 24.0;
  }
  if (rise >= nightStart && set <= nightEnd) return (set - rise) * 24.0;
  if (rise <= nightStart && set <= nightStart) return 0.0;
  if (rise >= nightEnd && set >= nightEnd) return 0.0;
  if (rise <= nightStart && set >= nightEnd) return (nightEnd - nightStart) * 24.0;
  if (rise <= nightStart && set <= nightEnd) return (set - nightStart) * 24.0;
  if (rise >= nightStart && set >= nightEnd) return (nightEnd - rise) * 24.0;
  log(LogLevel::warning,
      fmt::format("Unknown case for moonless night hours. Moonrise: {:.2f}, Moonset: {:.2f}, "
                  "Night starts: {:.2f}, Night ends: {:.2f}",
                  rise, set, nightStart, nightEnd));
  return 0.0;
}

void addMoonRiseSets(std::vector<MoonRiseSet>& moonRiseSets, double forMjdRise, double andMjdSet) {
  const bool rises = drawEventAtMjd(forMjdRise);
  const bool sets = drawEventAtMjd(andMjdSet);
  if (rises && sets && forMjdRise <= andMjdSet) {
    moonRiseSets.push_back({forMjdRise, andMjdSet});
    return;
  }
  if (sets) moonRiseSets.push_back({kNotThisDay, andMjdSet});
  if (rises) moonRiseSets.push_back({forMjdRise, kNotThisDay});
}

}  // namespace zenivo
