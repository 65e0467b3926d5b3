#include "commands/sky/DarkNight.h"

#include <algorithm>
#include <span>

#include "planner/NightWindow.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

double noonOf(const SunEvent& day) {
  const Date midnight = Date::withTimeIntervalSinceReferenceDate(day.date);
  return modifiedJulianDay(dateWithNoonDateTime(midnight, cachedCalendar()));
}

bool isDarkAllDay(const SunEvent& day) {
  return day.astronomicalTwilight.mjdStart() == kAlwaysBelow;
}

/// The darkness between the noons of two days; `night` is what bounds it on ordinary days.
std::optional<TimeSpan> darknessBetween(const SunEvent& first, const SunEvent& second,
                                        const std::optional<NightWindow>& night) {
  const double dusk = night ? night->dusk : kNotThisDay;
  const double dawn = night ? night->dawn : second.astronomicalTwilight.mjdStart();
  const TimeSpan span{isDarkAllDay(first) ? noonOf(first) : dusk,
                      isDarkAllDay(second) ? noonOf(second) : dawn};
  if (!drawEventAtMjd(span.start) || !drawEventAtMjd(span.end) || span.end <= span.start) {
    return std::nullopt;
  }
  return span;
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
  return darkNight(darknessBetween(days[1], days[2], nightBeginningToday(days)), planner);
}

std::optional<DarkNight> nightEndingOnDay(const PlannerManager& planner) {
  const std::span<const SunEvent, 3> days(planner.sunEvents());
  return darkNight(darknessBetween(days[0], days[1], nightEndingToday(days)), planner);
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
