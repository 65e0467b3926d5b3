#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "time/Mjd.h"
#include "time/PtDateTime.h"
#include "time/ZVDateTime.h"

namespace zenivo {
namespace {

// Meeus, Astronomical Algorithms (1998), chapter 7: examples 7.a to 7.c and the
// table of Julian dates behind them.
TEST(CivilDate, JulianDatesOfMeeus) {
  const struct {
    PtDateTime date;
    double jd;
  } cases[] = {
      {{1957, 10, 4, 19, 26.4}, 2436116.31},  // launch of Sputnik 1
      {{333, 1, 27, 12, 0}, 1842713.0},      {{2000, 1, 1, 12, 0}, 2451545.0},
      {{1999, 1, 1, 0, 0}, 2451179.5},       {{1987, 6, 19, 12, 0}, 2446966.0},
      {{1900, 1, 1, 0, 0}, 2415020.5},       {{1600, 12, 31, 0, 0}, 2305812.5},
      {{837, 4, 10, 7, 12}, 2026871.8},      {{-123, 12, 31, 0, 0}, 1676496.5},
      {{-1000, 7, 12, 12, 0}, 1356001.0},    {{-1001, 8, 17, 21, 36}, 1355671.4},
      {{-4712, 1, 1, 12, 0}, 0.0},
  };
  for (const auto& [date, jd] : cases) {
    EXPECT_NEAR(getJd(date), jd, 1e-6) << jd;
    PtDateTime back;
    setFromJd(back, jd);
    // 1957-10-04.81 in Meeus is 19:26.4; a Julian date in a double is good to 40 us.
    EXPECT_NEAR(getMjd(back), getMjd(date), 1e-8) << jd;
    EXPECT_EQ(back.year, date.year) << jd;
    EXPECT_EQ(back.day, date.day) << jd;
  }
}

TEST(CivilDate, TheReformLosesNoDay) {
  const PtDateTime last{1582, 10, 4, 0, 0}, first{1582, 10, 15, 0, 0};
  EXPECT_EQ(getMjd(last) + 1.0, getMjd(first));
  EXPECT_EQ(getMjd({1858, 11, 17, 0, 0}), 0.0);
  for (const PtDateTime& wanted : {last, first}) {
    PtDateTime date;
    setFromMjd(date, getMjd(wanted));
    EXPECT_EQ(date, wanted);
  }
}

TEST(CivilDate, EveryDayOfFiveThousandYearsComesBack) {
  PtDateTime date;
  for (double mjd = -2'400'000.5 + 366.5; mjd < 500'000.0; mjd += 17.0) {
    setFromMjd(date, mjd);
    ASSERT_EQ(getMjd(date), mjd);
    ASSERT_EQ(date.hour, 0);
    ASSERT_EQ(date.minutes, 0.0);
  }
}

TEST(CivilDate, WholeMinutesStayWhole) {
  PtDateTime date;
  for (int minute = 0; minute < 1440; ++minute) {
    const PtDateTime wanted{2024, 2, 29, minute / 60, minute % 60 * 1.0};
    setFromMjd(date, getMjd(wanted));
    // Noise may carry the minute into 60 of the hour before, never to 59.99999.
    EXPECT_EQ(date.hour * 60 + date.minutes, minute);
    EXPECT_EQ(date.minutes, std::round(date.minutes));
  }
}

TEST(CivilDate, TheTwinKeepsTheMinutesRaw) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> moment(-100'000.0, 150'000.0);
  for (int i = 0; i < 1000; ++i) {
    const double mjd = moment(random);
    ZVDateTime twin;
    twin.setFromMjd(mjd);
    EXPECT_NEAR(twin.getMjd(), mjd, 1e-9);  // the half of a Julian date's last place
    PtDateTime record;
    setFromMjd(record, mjd);
    EXPECT_NEAR(getMjd(record), mjd, 1e-5 / 1440.0);
  }
}

TEST(ZVDateTime, OrderAndValidity) {
  EXPECT_FALSE(ZVDateTime().isValid());
  EXPECT_FALSE(ZVDateTime(2024, 2, -1).isValid());
  const ZVDateTime date(2024, 2, 29, 12, 30.5);
  EXPECT_TRUE(date.isValid());
  EXPECT_EQ(date.compare(ZVDateTime(2024, 2, 29, 12, 30.5)), 0);
  EXPECT_EQ(date.compare(ZVDateTime(2024, 2, 29, 12, 30.6)), -1);
  EXPECT_EQ(date.compare(ZVDateTime(2024, 1, 31, 23, 59)), 1);
  EXPECT_EQ(date.getDecimalHour(), 12.0 + 30.5 / 60.0);
}

TEST(DecimalYear, LastDays) {
  // The twin counts the whole year; the record's months from July on start a day early.
  EXPECT_EQ(ZVDateTime(2023, 12, 31).getDecimalYear(), 2024.0);
  EXPECT_EQ(getDecimalYear({2023, 12, 31, 0, 0}), 2023.0 + 364.0 / 365.0);
  EXPECT_EQ(getDecimalYear({2023, 6, 30, 0, 0}), getDecimalYear({2023, 7, 1, 0, 0}));
  for (const int year : {1900, 2000, 2023, 2024}) {
    const bool leap = year == 2000 || year == 2024;
    EXPECT_NEAR(getDecimalYear({year, 3, 1, 0, 0}) - getDecimalYear({year, 2, 28, 0, 0}),
                (leap ? 2.0 : 1.0) / 365.0, 1e-12);
    EXPECT_EQ(ZVDateTime(year, 1, 1).isLeapYear(), leap);
  }
}

// Observed TT - UT, January 1: Meeus (1998), chapter 10, and IERS; before 1650 after
// Espenak and Meeus (2006).  The expressions are near at the beginning of their spans.
TEST(DeltaT, NearTheObservedValues) {
  const struct {
    int year;
    double seconds, tolerance;
  } cases[] = {{1000, 1570, 10},   {1600, 120, 2},     {1700, 9, 1},       {1800, 13.7, 0.5},
               {1860, 7.7, 0.2},   {1900, -2.7, 0.2},  {1920, 21.2, 0.1},  {1950, 29.15, 0.1},
               {1975, 45.48, 0.1}, {2000, 63.83, 0.1}, {2005, 64.69, 0.1}, {2010, 66.07, 0.7},
               {2020, 69.36, 2.3}};
  for (const auto& [year, seconds, tolerance] : cases) {
    EXPECT_NEAR(getDeltaT({year, 1, 1, 12, 0}) * 86400.0, seconds, tolerance) << year;
  }
}

// Every span in its middle, to the last coefficient: its expression worked out apart.
TEST(DeltaT, EachSpan) {
  const struct {
    double year, seconds, twin;
  } cases[] = {{500, 3030.0240671875, 3030.0240671875},
               {1550, -3170.5425683467, -3170.5425683467},
               {1660, 146.6027796325, 146.6027796325},
               {1760, -20.6611777172, -20.6611777172},
               {1840, 1087.21828, 1087.21828},
               {1880, -130.7593989885, -130.7593989885},
               {1912, -0.1080264, -0.1080264},
               {1932, 16.7630192, 16.7630192},
               {1955, 31.0559226541, 30.9486265168},
               {1970, 39.9409052925, 39.8447514463},
               {1995, 60.5608787188, 60.5608787188},
               {2020, 71.599, 71.599},
               {2100, 202.74, 202.74},
               {2200, 442.08, 442.08}};
  for (const auto& [year, seconds, twin] : cases) {
    PtDateTime record;
    setFromMjd(record, kMjdJ2000 + (year - 2000.0) * 365.25);
    EXPECT_NEAR(getDeltaT(record) * 86400.0, seconds, 1e-4) << year;
    ZVDateTime other;
    other.setFromMjd(kMjdJ2000 + (year - 2000.0) * 365.25);
    EXPECT_NEAR(other.getDeltaT() * 86400.0, twin, 1e-4) << year;
  }
}

TEST(DeltaT, StepsWhereTheExpressionsMeet) {
  const auto at = [](double year) {
    PtDateTime date;
    setFromMjd(date, kMjdJ2000 + (year - 2000.0) * 365.25);
    return getDeltaT(date) * 86400.0;
  };
  const double hour = 1.0 / 8766.0;
  EXPECT_NEAR(at(1961.0 - hour), 33.02, 0.01);
  EXPECT_NEAR(at(1961.0 + hour), 26.69, 0.01);
  EXPECT_NEAR(at(1986.0 - hour), 59.03, 0.015);
  EXPECT_NEAR(at(1986.0 + hour), 39.81, 0.01);
  // Elsewhere in modern times the pieces meet.
  for (const double year : {2005.0, 2050.0, 2150.0}) {
    EXPECT_NEAR(at(year - hour), at(year + hour), 1.5) << year;
  }
}

}  // namespace
}  // namespace zenivo
