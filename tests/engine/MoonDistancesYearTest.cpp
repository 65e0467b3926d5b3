#include "engine/MoonDistancesYear.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>

#include "LibnovaPeer.h"
#include "engine/MoonPhase.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "engine/Refraction.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

class MoonDistancesYearTest : public testing::Test {
 protected:
  void SetUp() override { setCachedCalendarTimeZone(TimeZone()); }
  void TearDown() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }
};

std::vector<int> months(const std::vector<MoonPhaseDistance>& list) {
  std::vector<int> result;
  for (const MoonPhaseDistance& item : list)
    result.push_back(monthValue(item.date, cachedCalendar()));
  return result;
}

// Distances at full Moon as published: 2016 Oct 358,473, Nov 356,520, Dec 359,449;
// 2018 Jan 2 356,604 and Jan 31 360,198 km, a day after perigee; 2024 Aug 361,969
// (too far), Sep 357,485, Oct 357,363, Nov 361,866 (too far).
TEST_F(MoonDistancesYearTest, SupermoonsOfKnownYears) {
  const PtPosition greenwich(51.48, 0.0);
  EXPECT_EQ(months(MoonDistancesYear(greenwich, 2016, cachedCalendar()).supermoons()),
            (std::vector{10, 11, 12}));
  MoonDistancesYear year(greenwich, 2017, cachedCalendar());
  year.nextYear();
  EXPECT_EQ(year.year(), 2018);
  EXPECT_EQ(months(year.supermoons()), (std::vector{1, 1}));
  EXPECT_NEAR(year.supermoons()[1].distanceToEarth, 360198, 30);
  EXPECT_GT(year.supermoons()[1].phase, 0.999);
  EXPECT_EQ(months(MoonDistancesYear(greenwich, 2024, cachedCalendar()).supermoons()),
            (std::vector{9, 10}));

  // On Kiritimati the perigee was on January 30 and the full Moon in February.
  setCachedCalendarTimeZone(TimeZone::timeZoneWithName("Pacific/Kiritimati").value());
  MoonDistancesYear there(greenwich, 2018, cachedCalendar());
  EXPECT_EQ(months(there.supermoons()), (std::vector{1}));
  there.previousYear();
  EXPECT_EQ(there.year(), 2017);
}

// The apsides of the series are those of the lunar theory: at each the distance is
// an extreme and that of the series to 25 km (0.2 arcseconds of parallax, what the
// theory was truncated to), and the moment lies within 40 minutes (perigee) or 8
// minutes (apogee) of the vertex of a parabola through the distances around it; in
// the mean 5 minutes.
TEST_F(MoonDistancesYearTest, ApsidesAgreeWithTheEphemeris) {
  ephemeris::PtMoon moon;
  double worstPerigee = 0, worstApogee = 0, worstDistance = 0;
  double sumOfSquares = 0;  // of the minutes
  int count = 0;
  for (std::int64_t year = 1950; year < 2050; year += 3) {
    for (const MoonDistance& apsis : apogeePerigeesForYear(year, cachedCalendar())) {
      // The lunar theory wants dynamical time, which the series gives.
      constexpr double kStep = 0.25;
      const auto distanceAfter = [&](double days) {
        return moon.eclipticPosition(true, julianCenturies(apsis.mjd + days)).r();
      };
      const double before = distanceAfter(-kStep), at = distanceAfter(0);
      const double after = distanceAfter(kStep);
      const double minutes =
          kStep * 1440.0 * (before - after) / (2.0 * (before - 2.0 * at + after));
      const bool perigee = apsis.type == MoonDistanceType::perigee;
      ASSERT_EQ(perigee, before + after > 2.0 * at) << year;
      sumOfSquares += minutes * minutes;
      ++count;
      double& worst = perigee ? worstPerigee : worstApogee;
      worst = std::max(worst, std::abs(minutes));
      worstDistance = std::max(worstDistance, std::abs(at - apsis.distance));
    }
  }
  std::cout << "worst miss: perigees " << worstPerigee << " minutes, apogees " << worstApogee
            << " minutes, distances " << worstDistance
            << " km against the lunar theory, 1950-2050\n";
  EXPECT_LT(worstPerigee, 40.0);
  EXPECT_LT(worstApogee, 8.0);
  EXPECT_LT(worstDistance, 25.0);
  EXPECT_LT(std::sqrt(sumOfSquares / count), 5.0);
}

// The apogee of 2024 January 1, 15:28 UT (U.S. Naval Observatory), three days before the
// last quarter, with the sky of Cape Town by libnova; altitude and horizon left out.
TEST_F(MoonDistancesYearTest, ARecordHoldsTheSkyOfTheObserver) {
  const MoonDistancesYear year(PtPosition(-33.9, 18.4, 1000.0, 500.0), 2024, cachedCalendar());
  EXPECT_EQ(year.location(), PtPosition(-33.9, 18.4));
  ASSERT_EQ(year.apogees().size(), 14u);
  EXPECT_EQ(year.perigees().size(), 13u);
  const MoonPhaseDistance& apogee = year.apogees().front();
  EXPECT_EQ(apogee.type, MoonDistanceType::apogee);
  EXPECT_EQ(year.perigees().front().type, MoonDistanceType::perigee);
  EXPECT_NEAR(apogee.mjd, getMjd({2024, 1, 1, 15, 28}), 10.0 / 1440.0);
  EXPECT_NEAR(apogee.date.timeIntervalSinceDate(dateFromModifiedJulianDay(apogee.mjd, true)), 0.0,
              1.0);
  EXPECT_NEAR(apogee.distanceToEarth, 404909.0, 30.0);
  EXPECT_NEAR(apogee.phase, 0.72, 0.01);
  EXPECT_FALSE(apogee.waxing);
  PtDateTime moment;
  setFromMjd(moment, apogee.mjd);
  const double deltaT = getDeltaT(moment);
  // libnova's altitudes are geocentric, the Moon's parallax 54.1 arcminutes at this distance.
  const double sun = libnova::sunSky(apogee.mjd, deltaT, -33.9, 18.4).altitude;
  const double moon = libnova::moonSky(apogee.mjd, deltaT, -33.9, 18.4).altitude;
  EXPECT_NEAR(apogee.sunElevation, sun + refractionTrueToApparent(sun), 0.02);
  EXPECT_NEAR(apogee.moonElevation, moon - 0.902 * std::cos(moon * kDegree), 0.05);
  // The other way to the same angle.
  ephemeris::PtSun sunThere(year.location());
  ephemeris::PtMoon moonThere(year.location());
  EXPECT_EQ(
      static_cast<float>(apogee.zenithAngle),
      moonPhaseDataForMjd(apogee.mjd, deltaT, sunThere, moonThere, apogee.date, cachedCalendar())
          .zenithAngle);
}

}  // namespace
}  // namespace zenivo
