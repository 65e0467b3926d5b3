#include "planner/NightWindow.h"

#include <algorithm>

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

/// It does not get dark today, or it is dark all day long: neither has a night with
/// a dusk and a dawn.
bool hasNoNight(const SunEvent& today) {
  return today.astronomicalTwilight.mjdEnd() == kAlwaysBelow ||
         today.astronomicalTwilight.mjdStart() == kAlwaysAbove;
}

std::optional<NightWindow> nightFrom(double dusk, double dawn) {
  if (!drawEventAtMjd(dusk)) return std::nullopt;
  return NightWindow{dusk, dawn};
}

}  // namespace

std::optional<NightWindow> nightEndingToday(std::span<const SunEvent, 3> sunEvents) {
  const SunEvent& yesterday = sunEvents[0];
  const SunEvent& today = sunEvents[1];
  if (hasNoNight(today)) return std::nullopt;
  const double dawn = today.astronomicalTwilight.mjdStart();
  if (beginsBeforeDusk(today)) return nightFrom(today.astronomicalTwilight.mjdEnd(), dawn);
  const double second = secondDusk(yesterday);
  return nightFrom(drawEventAtMjd(second) ? second : yesterday.astronomicalTwilight.mjdEnd(), dawn);
}

std::optional<NightWindow> nightBeginningToday(std::span<const SunEvent, 3> sunEvents) {
  const SunEvent& today = sunEvents[1];
  const SunEvent& tomorrow = sunEvents[2];
  if (hasNoNight(today)) return std::nullopt;
  const double dawn = tomorrow.astronomicalTwilight.mjdStart();
  if (beginsBeforeDusk(tomorrow)) return nightFrom(tomorrow.astronomicalTwilight.mjdEnd(), dawn);
  const double dusk = std::max(today.astronomicalTwilight.mjdEnd(), secondDusk(today), mjdIsBefore);
  return nightFrom(dusk, dawn);
}

}  // namespace zenivo
