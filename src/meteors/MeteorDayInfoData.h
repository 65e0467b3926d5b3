// One civil day of a place, as the meteor screens show it.

#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "foundation/Calendar.h"
#include "time/Mjd.h"

namespace zenivo {

namespace ephemeris {
class PtSun;
class PtMoon;
class PtMilkyWay;
}  // namespace ephemeris

/// A point of a day's curves.
struct MeteorGraphInfoAtMjd {
  double mjd = 0;
  float moonElevation = 0;    ///< degrees
  float meteorElevation = 0;  ///< of the selected shower's radiant, degrees
  float rate = 0;             ///< of all showers, meteors per hour

  friend bool operator==(const MeteorGraphInfoAtMjd&, const MeteorGraphInfoAtMjd&) = default;
};

struct MeteorGraphInterval {
  double mjdFrom = 0;
  double mjdTo = 0;

  friend bool operator==(const MeteorGraphInterval&, const MeteorGraphInterval&) = default;
};

/// Moments are mjd; those of rise and set may be sentinels (engine/Mjd.h).  Zeroes
/// while there is no place.
struct MeteorDayInfoData {
  double mjdStart = 0;  ///< local midnight that opens the day
  double mjdEnd = 0;    ///< the next one: 23, 24 or 25 hours later
  double mjdSunRise = 0;
  double mjdSunSet = 0;
  /// A second sunrise or sunset late in the same day, where the first one comes soon
  /// after midnight and earlier every day; else kAlwaysBelow.
  double mjdSunRise2 = kAlwaysBelow;
  double mjdSunSet2 = kAlwaysBelow;
  double mjdMoonRise = 0;
  double mjdMoonSet = 0;
  /// When the galactic centre is seen in the night that begins this day; kAlwaysBelow
  /// in both when it is not.
  double mjdGcVisibilityStart = kAlwaysBelow;
  double mjdGcVisibilityEnd = kAlwaysBelow;
  double gcVisibilityStartAngle = 0;  ///< tilt of the Milky Way then, radians: gc_angle_
  double gcVisibilityEndAngle = 0;
  std::vector<MeteorGraphInfoAtMjd> elevationsAndRates;  ///< ten minutes apart
  std::vector<MeteorGraphInterval> nightIntervals;       ///< Sun below -18 degrees
  std::vector<MeteorGraphInterval> twilightIntervals;    ///< Sun below the horizon

  double middle() const { return (mjdStart + mjdEnd) / 2.0; }
};

enum DayIndex : std::size_t { Yesterday, Today, Tomorrow };
using MeteorDays = std::array<MeteorDayInfoData, 3>;

/// Fills the Sun's rise and set.
void calculateSunRiseSet(MeteorDayInfoData& day, ephemeris::PtSun& sun);

/// Fills the rises and sets of the Sun and the Moon, the galactic centre's visibility,
/// and the intervals of night and twilight, for a day of the calendar.
void calculateTwilightAndNightIntervals(MeteorDayInfoData& day, ephemeris::PtSun& sun,
                                        ephemeris::PtMoon& moon, const Calendar& calendar);

/// Fills the points of the curves with the Moon's elevation.
void calculateMoonElevations(MeteorDayInfoData& day, ephemeris::PtMoon& moon);

}  // namespace zenivo
