#include "engine/MilkyWay.h"

#include <algorithm>

#include "engine/PtMilkyWay.h"
#include "engine/PtSun.h"
#include "engine/Twilight.h"
#include "time/DateEphemeris.h"
#include "time/LocalDay.h"

namespace zenivo {
namespace {

using ephemeris::EventKind;
using ephemeris::PtMilkyWay;
using ephemeris::PtSun;
using ephemeris::VisibilityWindow;

/// Limits of a dark night, mjd or sentinels.
struct DarkNight {
  double dusk = kAlwaysBelow;
  double dawn = kAlwaysBelow;
};

/// Dusk came after midnight, before the dawn of the same local day.
bool duskBeforeDawn(const AstronomicalTwilight& twilight) {
  return drawEventAtMjd(twilight.start) && drawEventAtMjd(twilight.end) &&
         twilight.end < twilight.start;
}

/// The twilight of a day some days after `today`, with the deltaT of today.
AstronomicalTwilight twilightAfter(int days, const LocalDay& today, PtSun& sun,
                                   const Calendar& calendar) {
  LocalDay day = today.dayAfter(days, calendar);
  day.deltaT = today.deltaT;
  return astronomicalTwilightOfDay(sun, day, calendar);
}

DarkNight nightEnding(const AstronomicalTwilight& yesterday, const AstronomicalTwilight& today) {
  if (duskBeforeDawn(today)) return {today.end, today.start};
  const double dusk = yesterday.end2 != kAlwaysBelow ? yesterday.end2 : yesterday.end;
  return {dusk, today.start};
}

DarkNight nightBeginning(const AstronomicalTwilight& today, const AstronomicalTwilight& tomorrow) {
  if (duskBeforeDawn(tomorrow)) return {tomorrow.end, tomorrow.start};
  return {std::max(today.end, today.end2, mjdIsBefore), tomorrow.start};
}

}  // namespace

MilkyWayEvent calculateGalacticCenterVisibility(PtMilkyWay& milkyWay, PtSun& withSun, Date atDate,
                                                const Calendar& calendar) {
  const LocalDay day = LocalDay::of(atDate, calendar);
  MilkyWayEvent event;
  event.date = day.date.timeIntervalSinceReferenceDate();
  event.setMjdRise(kAlwaysBelow);
  event.setMjdSet(kAlwaysBelow);

  const AstronomicalTwilight today = astronomicalTwilightOfDay(withSun, day, calendar);
  if (today.end == kAlwaysBelow || today.start == kAlwaysAbove) return event;
  const double morning = withSun.riseSet(EventKind::nautical, day.mjdAt0, day.deltaT).rise;
  const DarkNight night = mjdIsBefore(modifiedJulianDay(atDate), morning)
                              ? nightEnding(twilightAfter(-1, day, withSun, calendar), today)
                              : nightBeginning(today, twilightAfter(1, day, withSun, calendar));
  const VisibilityWindow window = milkyWay.visibilityWindow(night.dusk, night.dawn, day.deltaT);
  event.setMjdRise(window.rise);
  event.setMjdSet(window.set);
  event.mjdVisibilityFrom = window.from;
  event.mjdVisibilityTo = window.to;
  return event;
}

std::optional<Date> nextDateGalacticCenterIsVisible(PtMilkyWay& milkyWay, PtSun& sun, Date atDate,
                                                    const Calendar& calendar) {
  constexpr double kNorthernLimit = 58.0;  // degrees of latitude
  constexpr int kMostDays = 180;
  if (milkyWay.getPosition().latitude() > kNorthernLimit) return std::nullopt;
  for (int days = 1; days <= kMostDays; ++days) {
    // Counted from the first date: a gap of the clocks on the way shifts nothing.
    const Date date = dateByAddingNumberOfDays(atDate, days, calendar);
    const MilkyWayEvent event = calculateGalacticCenterVisibility(milkyWay, sun, date, calendar);
    if (event.mjdVisibilityFrom != kAlwaysBelow) return date;
  }
  return std::nullopt;
}

}  // namespace zenivo
