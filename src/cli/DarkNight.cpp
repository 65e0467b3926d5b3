#include "cli/DarkNight.h"

#include <algorithm>
#include <span>

#include "engine/DateEphemeris.h"
#include "planner/NightWindow.h"

namespace zenivo::cli {
namespace {

double noonOf(const SunEvent& day) {
  const Date midnight = Date::withTimeIntervalSinceReferenceDate(day.date);
  return modifiedJulianDay(dateWithNoonDateTime(midnight));
}

bool isDarkAllDay(const SunEvent& day) {
  return day.astronomicalTwilight.mjdStart() == kAlwaysBelow;
}

std::optional<TimeSpan> spanOf(const std::optional<NightWindow>& night) {
  if (!night || !drawEventAtMjd(night->dawn) || night->dawn <= night->dusk) return std::nullopt;
  return TimeSpan{night->dusk, night->dawn};
}

std::optional<DarkNight> darkNight(const std::optional<TimeSpan>& darkness,
                                   const PlannerManager& planner) {
  if (!darkness) return std::nullopt;
  ephemeris::PtMoon moon(planner.getObserver()->getPtPosition());
  return DarkNight{*darkness, moonlessSpans(*darkness, moon)};
}

}  // namespace

double DarkNight::moonlessHours() const {
  double hours = 0;
  for (const TimeSpan& span : moonless) hours += span.hours();
  return hours;
}

std::optional<DarkNight> nightBeginningOnDay(const PlannerManager& planner) {
  const std::span<const SunEvent, 3> days(planner.sunEvents());
  if (isDarkAllDay(days[1])) return darkNight(TimeSpan{noonOf(days[1]), noonOf(days[2])}, planner);
  return darkNight(spanOf(nightBeginningToday(days)), planner);
}

std::optional<DarkNight> nightEndingOnDay(const PlannerManager& planner) {
  const std::span<const SunEvent, 3> days(planner.sunEvents());
  if (isDarkAllDay(days[1])) return darkNight(TimeSpan{noonOf(days[0]), noonOf(days[1])}, planner);
  return darkNight(spanOf(nightEndingToday(days)), planner);
}

std::vector<TimeSpan> moonlessSpans(const TimeSpan& span, ephemeris::PtMoon& moon) {
  const double deltaT = getDeltaT(ptDateTimeForDate(dateFromModifiedJulianDay(span.start)));
  const auto [rise, set] = moon.riseSet(ephemeris::EventKind::riseSet, span.start, deltaT);
  if (rise == kAlwaysAbove) return {};
  if (rise == kAlwaysBelow) return {span};
  // Down until it rises, and again after it has set.
  const bool isUpAtStart = drawEventAtMjd(set) && !(drawEventAtMjd(rise) && rise < set);
  const double untilRise = drawEventAtMjd(rise) ? std::min(rise, span.end) : span.end;
  std::vector<TimeSpan> spans;
  if (isUpAtStart) {
    spans.push_back({set, untilRise});
  } else {
    spans.push_back({span.start, untilRise});
    if (drawEventAtMjd(set)) spans.push_back({set, span.end});
  }
  std::erase_if(spans, [](const TimeSpan& s) { return s.end <= s.start; });
  return spans;
}

}  // namespace zenivo::cli
