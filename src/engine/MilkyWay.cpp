#include "engine/MilkyWay.h"

#include <algorithm>

#include "engine/PtMilkyWay.h"
#include "engine/PtSun.h"
#include "engine/Twilight.h"
#include "time/DateEphemeris.h"

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

/// The local days around a moment, with one deltaT for all.
class DaysAround {
 public:
  DaysAround(PtSun& sun, Date moment, const Calendar& calendar)
      : sun_(sun),
        calendar_(calendar),
        noon_(dateWithNoonDateTime(moment, calendar)),
        deltaT_(deltaTAt(midnight(0))) {}

  double deltaT() const { return deltaT_; }

  /// 00:00 of the local day `days` after the moment's.
  Date midnight(int days) const {
    return dateWithStartDateTime(dateByAddingNumberOfDays(noon_, days, calendar_), calendar_);
  }

  AstronomicalTwilight twilight(int days) const {
    const Date start = midnight(days);
    return calculateAstronomicalTwilight(sun_, modifiedJulianDay(start), deltaT_,
                                         dayValue(start, calendar_), calendar_);
  }

  double morningNauticalTwilight() const {
    return sun_.riseSet(EventKind::nautical, modifiedJulianDay(midnight(0)), deltaT_).rise;
  }

 private:
  static double deltaTAt(Date date) { return getDeltaT(ptDateTimeForDate(date)); }

  PtSun& sun_;
  const Calendar& calendar_;
  Date noon_;
  double deltaT_;
};

/// Dusk came after midnight, before the dawn of the same local day.
bool duskBeforeDawn(const AstronomicalTwilight& twilight) {
  return drawEventAtMjd(twilight.start) && drawEventAtMjd(twilight.end) &&
         twilight.end < twilight.start;
}

DarkNight nightEndingThisMorning(const DaysAround& days, const AstronomicalTwilight& today) {
  if (duskBeforeDawn(today)) return {today.end, today.start};
  const AstronomicalTwilight yesterday = days.twilight(-1);
  const double dusk = yesterday.end2 != kAlwaysBelow ? yesterday.end2 : yesterday.end;
  return {dusk, today.start};
}

DarkNight comingNight(const DaysAround& days, const AstronomicalTwilight& today) {
  const AstronomicalTwilight tomorrow = days.twilight(1);
  if (duskBeforeDawn(tomorrow)) return {tomorrow.end, tomorrow.start};
  return {std::max(today.end, today.end2, mjdIsBefore), tomorrow.start};
}

}  // namespace

MilkyWayEvent calculateGalacticCenterVisibility(PtMilkyWay& milkyWay, PtSun& withSun, Date atDate,
                                                const Calendar& calendar) {
  const DaysAround days(withSun, atDate, calendar);
  MilkyWayEvent event;
  event.date = days.midnight(0).timeIntervalSinceReferenceDate();
  event.setMjdRise(kAlwaysBelow);
  event.setMjdSet(kAlwaysBelow);

  const AstronomicalTwilight today = days.twilight(0);
  if (today.end == kAlwaysBelow || today.start == kAlwaysAbove) return event;
  const bool beforeMorning = mjdIsBefore(modifiedJulianDay(atDate), days.morningNauticalTwilight());
  const DarkNight night =
      beforeMorning ? nightEndingThisMorning(days, today) : comingNight(days, today);
  const VisibilityWindow window =
      milkyWay.visibilityWindow(night.dusk, days.deltaT(), night.dawn, night.dusk);
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
  if (milkyWay.getPosition().latitude > kNorthernLimit) return std::nullopt;
  for (int days = 1; days <= kMostDays; ++days) {
    // Counted from the first date: a gap of the clocks on the way shifts nothing.
    const Date date = dateByAddingNumberOfDays(atDate, days, calendar);
    const MilkyWayEvent event = calculateGalacticCenterVisibility(milkyWay, sun, date, calendar);
    if (event.mjdVisibilityFrom != kAlwaysBelow) return date;
  }
  return std::nullopt;
}

}  // namespace zenivo
