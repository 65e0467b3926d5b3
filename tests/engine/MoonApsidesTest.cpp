#include "engine/MoonApsides.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "engine/Angles.h"
#include "engine/Supermoon.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

class MoonApsides : public testing::Test {
 protected:
  void SetUp() override { setCachedCalendarTimeZone(TimeZone()); }
  void TearDown() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }
};

// Meeus, Astronomical Algorithms (1998), example 50.a: the apogee of October
// 1988, parallax 3240.679 arcseconds.  The book prints JDE 2447442.3537; its
// table gives 2447442.3543, and so does the full theory ELP/MPP02 (.3544).
TEST_F(MoonApsides, ExampleOfMeeus) {
  const PtApogeePerigee apsis = moonApsis(-148.5);
  EXPECT_EQ(apsis.type, kApogee);
  EXPECT_NEAR(getJd(apsis.date), 2447442.3543, 0.5e-4);
  EXPECT_NEAR(std::asin(6378.137 / apsis.distance) * kArcsecondsPerRadian, 3240.679, 0.5e-3);
}

// Universal Time and kilometres as commonly published (U.S. Naval Observatory;
// the extremes of 1912 and 1984 from Meeus, chapter 50, to the day).
TEST_F(MoonApsides, PublishedApsides) {
  using enum MoonDistanceType;
  constexpr double kDay = 1440.0;
  const struct {
    PtDateTime date;
    MoonDistanceType type;
    double distance, minutes;
  } published[] = {
      {{1912, 1, 4, 12, 0}, perigee, 356375, kDay},  {{1984, 3, 2, 12, 0}, apogee, 406712, kDay},
      {{2008, 12, 12, 21, 39}, perigee, 356567, 40}, {{2011, 3, 19, 19, 10}, perigee, 356577, 40},
      {{2016, 11, 14, 11, 23}, perigee, 356509, 40}, {{2018, 1, 1, 21, 54}, perigee, 356565, 40},
      {{2024, 1, 1, 15, 30}, apogee, 404909, 40},    {{2024, 10, 2, 19, 40}, apogee, 406516, 40}};
  for (const auto& expected : published) {
    const auto apsides = apogeePerigeesForDate(dateWithPtDateTime(expected.date), cachedCalendar());
    ASSERT_EQ(apsides.size(), 1u) << expected.date.year;
    EXPECT_EQ(apsides[0].type, expected.type) << expected.date.year;
    EXPECT_NEAR(apsides[0].distance, expected.distance, 40.0) << expected.date.year;
    EXPECT_NEAR(apsides[0].mjd, getMjd(expected.date), expected.minutes / 1440.0);
  }
}

// Perigee and apogee take turns all through history; the years' lists joined
// lose none and double none, in whatever zone, and the months make up the year.
TEST_F(MoonApsides, YearsAndMonthsLoseNoneAndDoubleNone) {
  for (const char* zone : {"GMT", "Pacific/Kiritimati", "Pacific/Pago_Pago"}) {
    setCachedCalendarTimeZone(TimeZone::timeZoneWithName(zone).value());
    for (const std::int64_t first : {-4712, 1575, 2000, 5994}) {
      MoonDistance previous;
      for (std::int64_t year = first; year < first + 6; ++year) {
        std::vector<MoonDistance> months;
        for (int month = 1; month <= 12; ++month) {
          std::ranges::copy(apogeePerigeesForYear(year, month, cachedCalendar()),
                            std::back_inserter(months));
        }
        const std::vector<MoonDistance> apsides = apogeePerigeesForYear(year, cachedCalendar());
        ASSERT_EQ(apsides.size(), months.size()) << zone << year;
        for (std::size_t i = 0; i < apsides.size(); ++i) {
          ASSERT_EQ(apsides[i].mjd, months[i].mjd) << zone << year;
          if (year > first || i > 0) {
            ASSERT_NE(apsides[i].type, previous.type) << zone << year;
            ASSERT_NEAR(apsides[i].mjd - previous.mjd, 13.8, 2.5) << zone << year;
          }
          previous = apsides[i];
        }
      }
    }
  }
}

TEST_F(MoonApsides, AYearOutsideTheSeriesHasNone) {
  for (const std::int64_t year : {std::int64_t{-4713}, std::int64_t{6001}, INT64_MAX, INT64_MIN}) {
    EXPECT_TRUE(apogeePerigeesForYear(year, cachedCalendar()).empty()) << year;
  }
}

// The perigee of 2016-11-14 11:23 UT.  A day and a half counts, more does not, and one of
// the next month, that of 2018-01-01 21:54, not for a full Moon at the end of December.
TEST_F(MoonApsides, Supermoons) {
  const struct {
    PtDateTime fullMoon;
    double distance;
    bool super;
  } cases[] = {{{2016, 11, 14, 13, 52}, 360999.9, true}, {{2016, 11, 14, 13, 52}, 361000.0, false},
               {{2016, 11, 15, 22, 0}, 360500.0, true},  {{2016, 11, 16, 1, 0}, 360500.0, false},
               {{2016, 11, 13, 1, 0}, 360500.0, true},   {{2016, 11, 12, 22, 0}, 360500.0, false},
               {{2016, 11, 16, 1, 0}, 359999.9, true},   {{2016, 11, 16, 1, 0}, 360000.0, false},
               {{2017, 12, 31, 20, 0}, 360500.0, false}, {{2018, 1, 1, 1, 0}, 360500.0, true},
               {{2016, 10, 31, 19, 0}, 360500.0, false}};  // at an apogee
  for (const auto& [fullMoon, distance, super] : cases) {
    EXPECT_EQ(isFullMoonDateASupermoonDay(dateWithPtDateTime(fullMoon), distance, cachedCalendar()),
              super)
        << fullMoon.month << "-" << fullMoon.day << " " << distance;
  }
}

// 384,401 km is the mean distance, 356,400 about the nearest: published as 14 %
// bigger than at the farthest, 406,700.
TEST_F(MoonApsides, ApparentSizeAgainstTheMean) {
  EXPECT_NEAR(moonPercentageFromMeanAngularDiameterAtDistance(384600.0), 0.0, 1e-4);
  const double nearest = 1.0 + moonPercentageFromMeanAngularDiameterAtDistance(356400.0);
  const double farthest = 1.0 + moonPercentageFromMeanAngularDiameterAtDistance(406700.0);
  EXPECT_NEAR(nearest / farthest, 1.14, 0.005);
}

}  // namespace
}  // namespace zenivo
