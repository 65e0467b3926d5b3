#include "meteors/MeteorShower.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/Angles.h"
#include "meteors/Places.h"
#include "meteors/SkyBrightness.h"
#include "time/PtDateTime.h"

namespace zenivo {
namespace {

MeteorShowerJsonItem item(const char* starts, const char* ends, int month, double sl) {
  MeteorShowerJsonItem item;
  item.starts = starts;
  item.ends = ends;
  item.month = month;
  item.sl = sl;
  item.w = 1.2;
  item.zhr = 150;
  item.r = 2.6;
  item.speed = 35;
  return item;
}

MeteorShower shower(const MeteorShowerJsonItem& item) {
  return {MeteorShowerFacts(item), kTeide};
}

// The second period is a year after the first.
TEST(MeteorShowerPeriods, OfAYear) {
  const Calendar calendar(zoneNamed("America/New_York"));
  struct Case {
    const char* starts;
    const char* ends;
    int month;
    int startYear, endYear, peakYear;
  };
  for (const Case& c : {Case{"28.12", "12.01", 1, 2023, 2024, 2024},
                        {"28.12", "12.01", 12, 2023, 2024, 2023},
                        {"17.07", "24.08", 8, 2024, 2024, 2024}}) {
    MeteorShower s = shower(item(c.starts, c.ends, c.month, 283.0));
    s.calculateActivitiesWithYear(2024, calendar);
    ASSERT_EQ(s.activityPeriods.size(), 2U);
    for (int i = 0; i < 2; ++i) {
      const MeteorShowerActivityPeriod& period = s.activityPeriods[static_cast<std::size_t>(i)];
      EXPECT_EQ(period.startDate,
                dateIn("America/New_York", c.startYear + i, s.startMonth, s.startDay, 0));
      EXPECT_EQ(period.endDate,
                dateIn("America/New_York", c.endYear + i, s.endMonth, s.endDay, 23, 59, 59));
      EXPECT_EQ(period.year, c.peakYear + i) << c.starts << ' ' << c.month;
    }
    EXPECT_NEAR(s.activityPeriods[1].peakMjd - s.activityPeriods[0].peakMjd, 365.256, 0.02);
  }
}

TEST(MeteorShowerPeriods, FieldsThatAreNoNumbersAreZero) {
  const auto fields = [](const char* text) {
    const MeteorShower s = shower(item(text, "01.01", 1, 0));
    return std::pair(s.startDay, s.startMonth);
  };
  EXPECT_EQ(fields("7"), std::pair(7, 0));
  EXPECT_EQ(fields("x1.-12.5"), std::pair(0, -12));
  EXPECT_EQ(fields("99999999999.1 "), std::pair(0, 0));
  EXPECT_EQ(fields(""), std::pair(0, 0));
}

TEST(MeteorShowerPeriods, ThatAMomentConcerns) {
  const Calendar calendar(zoneNamed("Europe/Madrid"));
  MeteorShower s = shower(item("04.12", "20.12", 12, 262.2));
  s.calculateActivitiesWithYear(2024, calendar);
  const MeteorShowerActivityPeriod& first = s.activityPeriods[0];
  const MeteorShowerActivityPeriod& second = s.activityPeriods[1];
  const auto after = [](Date date, double seconds) {
    return date.dateByAddingTimeInterval(seconds);
  };

  EXPECT_EQ(s.currentActivityPeriodAtDate(after(first.startDate, -1)), nullptr);
  EXPECT_EQ(s.currentActivityPeriodAtDate(first.startDate), &first);
  EXPECT_EQ(s.currentActivityPeriodAtDate(first.endDate), &first);
  EXPECT_EQ(s.currentActivityPeriodAtDate(after(first.endDate, 1)), nullptr);
  EXPECT_TRUE(
      s.isActiveOrNextDayOfEndAtDate(dateIn("Europe/Madrid", 2024, 12, 21, 23, 59, 59), calendar));
  EXPECT_FALSE(s.isActiveOrNextDayOfEndAtDate(dateIn("Europe/Madrid", 2024, 12, 22, 0), calendar));
  for (const auto next : {&MeteorShower::closestActivityPeriodToDate,
                          &MeteorShower::currentOrNextActivityPeriodFromDate}) {
    EXPECT_EQ((s.*next)(first.endDate), &first);
    EXPECT_EQ((s.*next)(after(first.endDate, 1)), &second);
    EXPECT_EQ((s.*next)(dateIn("Europe/Madrid", 2026, 1, 1, 0)), nullptr);
  }
  EXPECT_TRUE(first.isUpcoming(first.startDate));
  EXPECT_FALSE(first.isUpcoming(after(first.startDate, 1)));
  EXPECT_TRUE(first.isUpcoming(after(first.startDate, -31.0 * 86400.0)));
  EXPECT_FALSE(first.isUpcoming(after(first.startDate, -31.0 * 86400.0 - 1.0)));

  // The real peak comes the night after the predicted one, and counts once it is known.
  const Date peak = s.getPeakTimeWithYear(2024).value();
  EXPECT_EQ(s.currentOrNextPeakActivityPeriodFromDate(peak), &first);
  EXPECT_EQ(s.currentOrNextPeakActivityPeriodFromDate(after(peak, 3600)), &second);
  s.activityPeriods[0].realPeakMjd = first.peakMjd + 0.5;
  s.activityPeriods[0].realPeakDate = dateFromModifiedJulianDay(first.realPeakMjd);
  EXPECT_EQ(s.currentOrNextPeakActivityPeriodFromDate(after(peak, 3600)), &first);
  EXPECT_EQ(s.currentOrNextPeakActivityPeriodFromMjd(first.peakMjd + 0.001), &second);
  EXPECT_EQ(s.activityPeriodForYear(2025), &second);
  EXPECT_FALSE(s.getPeakTimeWithYear(2023));
  EXPECT_EQ(first.toString(DateFormatter("%e %b", calendar.timeZone())), " 4 Dec - 20 Dec");
}

TEST(MeteorShowerRadiant, DriftsTheShortWayRound) {
  MeteorShowerJsonItem atNewYear = item("28.12", "12.01", 1, 1.0);
  atNewYear.ra = 100;
  atNewYear.dec = 30;
  atNewYear.raDrift = 1.0;
  MeteorShower s = shower(atNewYear);
  atNewYear.ra = 98;
  MeteorShower shifted = shower(atNewYear);
  const PtPolar drifted = s.radiantPositionAtMjd(60000.1, 0.0008, 359.0);
  const PtPolar fixed = shifted.radiantPositionAtMjd(60000.1, 0.0008, 1.0);
  EXPECT_NEAR(drifted.azimuth_, fixed.azimuth_, 1e-9);
  EXPECT_NEAR(drifted.elevation_, fixed.elevation_, 1e-9);
  EXPECT_EQ(s.elevation, drifted.elevation_);
}

TEST(MeteorRate, UnderADarkSky) {
  const MeteorShower s = shower(item("04.12", "20.12", 12, 262.2));
  const auto rate = [&](double longitude, double elevation, double magnitude) {
    return s.calculateMeteorsPerHourWithSolarLongitude(longitude, elevation * kDegree, magnitude);
  };
  EXPECT_DOUBLE_EQ(rate(262.2, 90.0, kDarkSkyMagnitude), s.maxZHR);
  // Half the width away there is half the rate.
  EXPECT_NEAR(rate(262.2 - 0.6, 90.0, kDarkSkyMagnitude), s.maxZHR / 2.0, 1e-9);
  // The population index is what a magnitude takes.
  EXPECT_NEAR(rate(262.2, 40.0, 6.4) / rate(262.2, 40.0, 5.4), s.r, 1e-12);
  double last = 0;
  for (double elevation = -90.0; elevation <= 90.0; elevation += 1.0) {
    const double now = rate(262.2, elevation, kDarkSkyMagnitude);
    ASSERT_GE(now, last) << elevation;
    last = now;
  }
}

// Gural, WGN 29 (2001): a radiant on the true horizon is lifted most for slow meteors; in
// the limit of no speed to half its zenith distance, and not at all for the fastest.
TEST(MeteorRate, TheEarthLiftsTheRadiant) {
  MeteorShowerJsonItem slow = item("04.12", "20.12", 12, 262.2);
  slow.speed = 1e-6;
  MeteorShowerJsonItem fast = slow;
  fast.speed = 1e6;
  const auto atHorizon = [](const MeteorShowerJsonItem& i) {
    return shower(i).calculateMeteorsPerHourWithSolarLongitude(262.2, 0.0, 6.4) / i.zhr;
  };
  EXPECT_NEAR(atHorizon(slow), std::sin(45.0 * kDegree), 1e-6);
  EXPECT_NEAR(atHorizon(fast), 0.0, 1e-6);
  // 15 km/s: lifted by 8.5 degrees; from 10 degrees below the horizon, not above it.
  slow.speed = 15;
  const MeteorShower s = shower(slow);
  EXPECT_GT(s.calculateMeteorsPerHourWithSolarLongitude(262.2, -5.0 * kDegree, 6.4), 0.0);
  EXPECT_EQ(s.calculateMeteorsPerHourWithSolarLongitude(262.2, -40.0 * kDegree, 6.4), 0.0);
}

TEST(MeteorRate, AsText) {
  const std::pair<double, const char*> cases[] = {
      {0.0099, "0.0"}, {0.01, "<0.1"}, {0.0999, "<0.1"}, {0.1, "0.1"}, {1234.0, "1,234.0"}};
  for (const auto& [rate, text] : cases) {
    EXPECT_EQ(MeteorShower::stringForMeteorRate(rate, {.usesGroupingSeparator = true}), text);
  }
}

TEST(PowerEnergy, OfANight) {
  struct Case {
    double count, withoutMoon, peak, mean, energy;
  };
  const Case cases[] = {
      {50, 100, 40, 10, 0.6 * 40 / 50},  // the Moon takes half, a fifth is forgiven
      {90, 100, 40, 10, 0.8},            // more than it forgives it does not give
      {0, 0, 40, 10, 0.8},               // nothing over nothing
      {50, 100, 100, 10, 1.0},
      {10, 100, 40, 20, 0.4},  // the mean, where it is more
      {100, 100, 4, 1, 0.1},   // weak but seen: a tenth
      {100, 100, 3, 1, 0.06},  // hardly seen: the truth
  };
  for (const Case& c : cases) {
    MeteorShowerActivityPeriod period;
    period.rateAtPeak = c.peak;
    period.meanMeteorRate = c.mean;
    period.calculatePowerEnergyWithMeteorCountNightOfPeak(c.count, c.withoutMoon);
    EXPECT_NEAR(period.powerEnergy, c.energy, 1e-12) << c.count << ' ' << c.peak;
  }
}

}  // namespace
}  // namespace zenivo
