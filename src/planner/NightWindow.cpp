#include "planner/NightWindow.h"

#include <algorithm>

#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

double secondDusk(const SunEvent& day) {
  return day.astronomicalTwilight2 ? day.astronomicalTwilight2->mjdEnd() : kAlwaysBelow;
}

/// The day begins in last night's twilight and has dusk before dawn.
bool beginsBeforeDusk(const SunEvent& day) {
  const TwilightEvent& twilight = day.astronomicalTwilight;
  return drawEventAtMjd(twilight.mjdStart()) && drawEventAtMjd(twilight.mjdEnd()) &&
         twilight.mjdEnd() < twilight.mjdStart();
}

bool neverGetsDark(const SunEvent& day) {
  return day.astronomicalTwilight.mjdStart() == kAlwaysAbove;
}

double midnightOf(const SunEvent& day) {
  return modifiedJulianDay(Date::withTimeIntervalSinceReferenceDate(day.date));
}

std::optional<NightWindow> nightFrom(double dusk, double dawn) {
  if (!drawEventAtMjd(dusk)) return std::nullopt;
  return NightWindow{dusk, dawn};
}

/// The dawn that a day has: its beginning when it is dark all day.
double dawnOf(const SunEvent& day) {
  return day.isDarkAllDay() ? midnightOf(day) : day.astronomicalTwilight.mjdStart();
}

}  // namespace

std::optional<NightWindow> nightEndingToday(std::span<const SunEvent, 3> sunEvents) {
  const SunEvent& yesterday = sunEvents[0];
  const SunEvent& today = sunEvents[1];
  if (neverGetsDark(today)) return std::nullopt;
  const double dawn = dawnOf(today);
  if (beginsBeforeDusk(today)) return nightFrom(today.astronomicalTwilight.mjdEnd(), dawn);
  if (yesterday.isDarkAllDay()) return nightFrom(midnightOf(yesterday), dawn);
  const double second = secondDusk(yesterday);
  return nightFrom(drawEventAtMjd(second) ? second : yesterday.astronomicalTwilight.mjdEnd(), dawn);
}

std::optional<NightWindow> nightBeginningToday(std::span<const SunEvent, 3> sunEvents) {
  const SunEvent& today = sunEvents[1];
  const SunEvent& tomorrow = sunEvents[2];
  if (neverGetsDark(today)) return std::nullopt;
  const double dawn = dawnOf(tomorrow);
  if (beginsBeforeDusk(tomorrow)) return nightFrom(tomorrow.astronomicalTwilight.mjdEnd(), dawn);
  if (today.isDarkAllDay()) return nightFrom(midnightOf(today), dawn);
  const double dusk = std::max(today.astronomicalTwilight.mjdEnd(), secondDusk(today), mjdIsBefore);
  return nightFrom(dusk, dawn);
}

}  // namespace zenivo
