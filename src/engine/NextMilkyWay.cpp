#include "engine/NextMilkyWay.h"

#include "engine/MilkyWay.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtSun.h"
#include "time/DateEphemeris.h"

namespace zenivo {

std::optional<MilkyWaySight> nextMilkyWaySight(const PtPosition& observer, Date moment,
                                               const Calendar& calendar) {
  ephemeris::PtSun sun(observer);
  ephemeris::PtMilkyWay milkyWay(observer);
  const auto limit = [&](double mjd) {
    milkyWay.computePosition(true, mjd, getDeltaT(ptDateTimeForDate(dateOfMjd(mjd))));
    return MilkyWaySight::Limit{mjd, milkyWay.horizontal()};
  };
  // The search begins with the day after the one it is given; first the night that
  // concerns the moment, which may have had its time already.
  for (const int days : {-1, 0}) {
    const auto date = nextDateGalacticCenterIsVisible(
        milkyWay, sun, dateByAddingNumberOfDays(moment, days, calendar), calendar);
    if (!date) return std::nullopt;
    const MilkyWayEvent event = calculateGalacticCenterVisibility(milkyWay, sun, *date, calendar);
    if (event.mjdVisibilityTo <= modifiedJulianDay(moment)) continue;
    return MilkyWaySight{limit(event.mjdVisibilityFrom), limit(event.mjdVisibilityTo)};
  }
  return std::nullopt;
}

}  // namespace zenivo
