#include "meteors/MeteorDayInfoData.h"

#include <algorithm>

#include "engine/MilkyWay.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "engine/Twilight.h"
#include "meteors/LocationInfoTesselManager.h"
#include "meteors/MeteorMoment.h"
#include "meteors/MeteorNight.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

using ephemeris::EventKind;
using ephemeris::PtMilkyWay;
using ephemeris::PtMoon;
using ephemeris::PtSun;
using ephemeris::RiseSet;

void calculateGalacticCenter(MeteorDayInfoData& day, PtSun& sun, const Calendar& calendar) {
  PtMilkyWay milkyWay(sun.getPosition());
  const MilkyWayEvent event = calculateGalacticCenterVisibility(
      milkyWay, sun, dateFromModifiedJulianDay(day.middle()), calendar);
  day.mjdGcVisibilityStart = event.mjdVisibilityFrom;
  day.mjdGcVisibilityEnd = event.mjdVisibilityTo;
  const auto tiltAt = [&](double mjd) {
    return drawEventAtMjd(mjd) ? milkyWay.milkyWayPosition(mjd, deltaTAtMjd(mjd)).gc_angle_ : 0.0;
  };
  day.gcVisibilityStartAngle = tiltAt(day.mjdGcVisibilityStart);
  day.gcVisibilityEndAngle = tiltAt(day.mjdGcVisibilityEnd);
}

/// The parts of a day in which the Sun is below an altitude that it crosses.
std::vector<MeteorGraphInterval> darkIntervals(const MeteorDayInfoData& day,
                                               const std::vector<double>& rises,
                                               const std::vector<double>& sets) {
  std::vector<MeteorGraphInterval> intervals =
      intervalsBelowAltitude(rises, sets, day.mjdStart, day.mjdEnd);
  // The search covers 24 hours even where the clock gives the day only 23.
  for (MeteorGraphInterval& interval : intervals) {
    interval.mjdTo = std::min(interval.mjdTo, day.mjdEnd);
  }
  return intervals;
}

}  // namespace

void calculateSunRiseSet(MeteorDayInfoData& day, PtSun& sun) {
  constexpr double kSecondIsPossible = 0.125;  // days
  const double deltaT = deltaTAtMjd(day.mjdStart);
  const RiseSet crossings = sun.riseSet(EventKind::riseSet, day.mjdStart, deltaT);
  day.mjdSunRise = crossings.rise;
  day.mjdSunSet = crossings.set;
  day.mjdSunRise2 = kAlwaysBelow;
  day.mjdSunSet2 = kAlwaysBelow;
  if (!drawEventAtMjd(crossings.rise) || !drawEventAtMjd(crossings.set)) return;

  const double first = std::min(crossings.rise, crossings.set);
  const double last = std::max(crossings.rise, crossings.set);
  if (first > day.mjdStart + kSecondIsPossible) return;
  // The search ended when it had one of each kind.
  const RiseSet later = sun.riseSet(EventKind::riseSet, day.mjdStart + 0.5, deltaT);
  const auto inThisDay = [&](double mjd) {
    return drawEventAtMjd(mjd) && mjd > last && mjd < day.mjdEnd;
  };
  if (crossings.rise < crossings.set) {
    if (inThisDay(later.rise)) day.mjdSunRise2 = later.rise;
  } else {
    if (inThisDay(later.set)) day.mjdSunSet2 = later.set;
  }
}

void calculateTwilightAndNightIntervals(MeteorDayInfoData& day, PtSun& sun, PtMoon& moon,
                                        const Calendar& calendar) {
  const double deltaT = deltaTAtMjd(day.mjdStart);
  calculateSunRiseSet(day, sun);
  const RiseSet moonCrossings = moon.riseSet(EventKind::riseSet, day.mjdStart, deltaT);
  day.mjdMoonRise = moonCrossings.rise;
  day.mjdMoonSet = moonCrossings.set;

  const int localDay = dayValue(dateFromModifiedJulianDay(day.middle()), calendar);
  const AstronomicalTwilight twilight =
      calculateAstronomicalTwilight(sun, day.mjdStart, deltaT, localDay, calendar);
  day.nightIntervals = darkIntervals(day, {twilight.start}, {twilight.end, twilight.end2});

  if (day.mjdSunRise == kAlwaysBelow) {
    day.twilightIntervals = {{day.mjdStart, day.mjdEnd}};
  } else {
    day.twilightIntervals =
        darkIntervals(day, {day.mjdSunRise, day.mjdSunRise2}, {day.mjdSunSet, day.mjdSunSet2});
  }
  calculateGalacticCenter(day, sun, calendar);
}

void calculateMoonElevations(MeteorDayInfoData& day, PtMoon& moon) {
  constexpr double kEndTolerance = 0.0001;  // days
  const double deltaT = deltaTAtMjd(day.mjdStart);
  const double step = LocationInfoTesselManager::mjdStepForMjdStart(day.mjdStart, day.mjdEnd);
  day.elevationsAndRates.clear();
  for (int n = 0;; ++n) {
    const double mjd = day.mjdStart + n * step;
    if (mjd - day.mjdEnd >= kEndTolerance) return;
    moon.computePosition(true, mjd, deltaT);
    day.elevationsAndRates.push_back(
        {.mjd = mjd, .moonElevation = static_cast<float>(moon.horizontal().elevation_)});
  }
}

}  // namespace zenivo
