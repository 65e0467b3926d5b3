#include "engine/MilkyWay.h"

#include "engine/Night.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtSun.h"
#include "time/DateEphemeris.h"
#include "time/LocalDay.h"

namespace zenivo {
namespace {

using ephemeris::EventKind;
using ephemeris::PtMilkyWay;
using ephemeris::PtSun;
using ephemeris::VisibilityWindow;

/// A day some days after `today`, with the deltaT of today.
NightDay nightDayAfter(int days, const LocalDay& today, PtSun& sun, const Calendar& calendar) {
  LocalDay day = today.dayAfter(days, calendar);
  day.deltaT = today.deltaT;
  return nightDay(sun, day, calendar);
}

}  // namespace

MilkyWayEvent calculateGalacticCenterVisibility(PtMilkyWay& milkyWay, PtSun& withSun, Date atDate,
                                                const Calendar& calendar) {
  const LocalDay day = LocalDay::of(atDate, calendar);
  MilkyWayEvent event;
  event.date = day.date.timeIntervalSinceReferenceDate();
  event.setMjdRise(kAlwaysBelow);
  event.setMjdSet(kAlwaysBelow);

  const NightDay today = nightDay(withSun, day, calendar);
  if (today.twilight.start == kAlwaysAbove) return event;
  const double morning = withSun.riseSet(EventKind::nautical, day.mjdAt0, day.deltaT).rise;
  const Night night = mjdIsBefore(modifiedJulianDay(atDate), morning)
                          ? nightEnding(nightDayAfter(-1, day, withSun, calendar), today)
                          : nightBeginning(today, nightDayAfter(1, day, withSun, calendar));
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
