#include "meteors/MeteorNight.h"

#include <algorithm>

namespace zenivo {
namespace {

struct Crossing {
  double mjd;
  bool rises;
};

/// The nights that the three days have part in, in order.
std::vector<MeteorGraphInterval> nightsOf(const MeteorDays& days) {
  std::vector<double> rises;
  std::vector<double> sets;
  for (const MeteorDayInfoData& day : days) {
    rises.insert(rises.end(), {day.mjdSunRise, day.mjdSunRise2});
    sets.insert(sets.end(), {day.mjdSunSet, day.mjdSunSet2});
  }
  double to = days[Tomorrow].middle();
  const auto isLate = [to](double set) { return drawEventAtMjd(set) && set >= to; };
  if (std::ranges::any_of(sets, isLate)) to = days[Tomorrow].mjdEnd;
  return intervalsBelowAltitude(rises, sets, days[Yesterday].middle(), to);
}

/// The half of the polar night's day that the moment is in, less what the Sun's last
/// setting and first rising leave.
MjdRateWindow polarNight(double mjd, const MeteorDays& days) {
  const double middle = days[Today].middle();
  MjdRateWindow window = middle > mjd ? MjdRateWindow{days[Yesterday].middle(), middle}
                                      : MjdRateWindow{middle, days[Tomorrow].middle()};
  for (const MeteorGraphInterval& night : nightsOf(days)) {
    if (night.mjdFrom > middle || night.mjdTo < middle) continue;
    window.start = std::max(window.start, night.mjdFrom);
    window.end = std::min(window.end, night.mjdTo);
  }
  return window;
}

}  // namespace

std::vector<MeteorGraphInterval> intervalsBelowAltitude(const std::vector<double>& rises,
                                                        const std::vector<double>& sets,
                                                        double from, double to) {
  std::vector<Crossing> crossings;
  for (const double mjd : rises) {
    if (drawEventAtMjd(mjd)) crossings.push_back({mjd, true});
  }
  for (const double mjd : sets) {
    if (drawEventAtMjd(mjd)) crossings.push_back({mjd, false});
  }
  std::ranges::sort(crossings, {}, &Crossing::mjd);

  std::vector<MeteorGraphInterval> intervals;
  bool isDown = !crossings.empty() && crossings.front().rises;
  double since = from;
  const auto addUntil = [&](double end) {
    if (isDown && since < end) intervals.push_back({since, end});
  };
  for (const Crossing& crossing : crossings) {
    if (crossing.rises) addUntil(crossing.mjd);
    isDown = !crossing.rises;
    since = crossing.mjd;
  }
  addUntil(to);
  return intervals;
}

MjdRateWindow calculateMjdRateStart(double forMjd, const MeteorDays& withInfo) {
  const MeteorDayInfoData& today = withInfo[Today];
  if (today.mjdSunRise == kAlwaysAbove) return {};
  if (today.mjdSunRise == kAlwaysBelow) return polarNight(forMjd, withInfo);

  const std::vector<MeteorGraphInterval> nights = nightsOf(withInfo);
  if (today.mjdSunRise == kNotThisDay && today.middle() > forMjd) {
    // The Sun came up before midnight: last night is over.
    const auto last = std::find_if(nights.rbegin(), nights.rend(), [&](const auto& night) {
      return night.mjdTo <= today.mjdStart;
    });
    return last == nights.rend() ? MjdRateWindow{} : MjdRateWindow{last->mjdFrom, last->mjdTo};
  }
  const auto next =
      std::ranges::find_if(nights, [&](const auto& night) { return night.mjdTo > forMjd; });
  return next == nights.end() ? MjdRateWindow{} : MjdRateWindow{next->mjdFrom, next->mjdTo};
}

double mjdPeakThresholdFor(const MeteorDayInfoData& day) {
  return drawEventAtMjd(day.mjdSunRise) ? day.mjdSunRise : day.middle();
}

}  // namespace zenivo
