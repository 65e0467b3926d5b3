#include "engine/Night.h"

#include <algorithm>

#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

/// Dusk came after midnight, before the dawn of the same local day.
bool duskBeforeDawn(const AstronomicalTwilight& twilight) {
  return drawEventAtMjd(twilight.start) && drawEventAtMjd(twilight.end) &&
         twilight.end < twilight.start;
}

double dawnOf(const NightDay& day) {
  return day.isDarkAllDay() ? day.noon : day.twilight.start;
}

double lastDuskOf(const NightDay& day) {
  return day.isDarkAllDay() ? day.noon : std::max(day.twilight.end, day.twilight.end2, mjdIsBefore);
}

}  // namespace

NightDay nightDay(ephemeris::PtSun& sun, const LocalDay& day, const Calendar& calendar) {
  return {.twilight = astronomicalTwilightOfDay(sun, day, calendar),
          .noon = modifiedJulianDay(dateWithNoonDateTime(day.date, calendar))};
}

Night nightBeginning(const NightDay& today, const NightDay& tomorrow) {
  if (today.twilight.start == kAlwaysAbove) return {};
  const AstronomicalTwilight& next = tomorrow.twilight;
  if (duskBeforeDawn(next)) return {next.end, next.start};
  return {lastDuskOf(today), dawnOf(tomorrow)};
}

Night nightEnding(const NightDay& yesterday, const NightDay& today) {
  if (today.twilight.start == kAlwaysAbove) return {};
  const AstronomicalTwilight& now = today.twilight;
  if (duskBeforeDawn(now)) return {now.end, now.start};
  return {lastDuskOf(yesterday), dawnOf(today)};
}

}  // namespace zenivo
