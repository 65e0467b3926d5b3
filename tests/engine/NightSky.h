// A sky in which nights are held against altitudes sampled minute by minute.

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

#include "engine/PtMilkyWay.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "time/DateEphemeris.h"

namespace zenivo {

/// A place, the zone of its clocks, and the local day in whose evening a night
/// begins.
struct NightCase {
  std::string story;
  double latitude;
  double longitude;
  std::string zone;
  DateComponents day;
};

class NightSky : public testing::Test {
 protected:
  void TearDown() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }

  /// Puts the bodies and the calendar there; the noon of the day.
  Date observe(const NightCase& night) {
    const PtPosition place(night.latitude, night.longitude);
    sun.setPosition(place);
    moon.setPosition(place);
    milkyWay.setPosition(place);
    setCachedCalendarTimeZone(TimeZone::timeZoneWithName(night.zone).value());
    DateComponents noon = night.day;
    noon.hour = 12;
    return cachedCalendar().dateFromComponents(noon);
  }

  /// A night of the years 1990 to 2045 between two latitudes, in a zone that fits.
  NightCase randomNight(double south, double north) {
    const int hour = std::uniform_int_distribution(-11, 12)(random);
    const double latitude = std::uniform_real_distribution(south, north)(random);
    // In these names the signs are reversed.
    const std::string zone = (hour > 0 ? "Etc/GMT-" : "Etc/GMT+") + std::to_string(std::abs(hour));
    const int day = std::uniform_int_distribution(1, 20'000)(random);
    return {std::to_string(latitude) + ' ' + zone + ' ' + std::to_string(day),
            latitude,
            15.0 * hour,
            zone,
            {.year = 1990, .month = 1, .day = day}};
  }

  /// Calls visit(mjd, deltaT) for each minute of the 24 hours from `noon` on in
  /// which the Sun's centre is below -18 degrees.
  template <class Visit>
  void forEachDarkMinute(Date noon, Visit visit) {
    constexpr double kSin18 = 0.3090169943749474;
    const double start = modifiedJulianDay(noon);
    const double deltaT = getDeltaT(ptDateTimeForDate(noon));
    for (int minute = 0; minute < 1440; ++minute) {
      const double mjd = start + minute / 1440.0;
      if (sun.sinAltitude(mjd, deltaT, 0.0) < -kSin18) visit(mjd, deltaT);
    }
  }

  std::mt19937_64 random{20'161'114};
  ephemeris::PtSun sun;
  ephemeris::PtMoon moon;
  ephemeris::PtMilkyWay milkyWay;
};

}  // namespace zenivo
