#include "meteors/RealPeak.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "meteors/MeteorNight.h"
#include "meteors/Places.h"

namespace zenivo {
namespace {

std::vector<RealPeakTask> tasksOfYear(const ZVLocation& place, std::int64_t year,
                                      const Calendar& calendar) {
  MeteorShowers catalogue(place);
  catalogue.calculateMeteorShowersActivitiesWithYear(year, calendar);
  std::vector<RealPeakTask> tasks;
  for (const auto& shower : catalogue.showers()) {
    tasks.push_back({.shower = *shower, .periods = shower->activityPeriods});
  }
  return tasks;
}

std::vector<RealPeakTask> solved(const std::vector<RealPeakTask>& tasks, const ZVLocation& place,
                                 const Calendar& calendar, int threads) {
  PeakSamples samples(place, calendar);
  std::vector<RealPeakTask> results;
  calculateRealPeaks(tasks, samples, threads, [&](const RealPeakTask& task) {
    results.push_back(task);
    return true;
  });
  return results;
}

// Every minute in which the Sun is down, from noon before the peak's day to noon after the
// next: no rate is higher than the real peak's, and it is a rate of its minute.
TEST(RealPeak, IsTheBestMinuteOfTheTwoNights) {
  const std::pair<const char*, ZVLocation> cases[] = {{"Atlantic/Canary", kTeide},
                                                      {"Europe/Oslo", placeAt(59.9, 10.7)},
                                                      {"Australia/Sydney", placeAt(-33.9, 151.2)}};
  for (const auto& [name, place] : cases) {
    const Calendar calendar(zoneNamed(name));
    ephemeris::PtSun sun(place.getPtPosition());
    ephemeris::PtMoon moon(place.getPtPosition());
    for (const RealPeakTask& task :
         solved(tasksOfYear(place, 2025, calendar), place, calendar, 1)) {
      if (task.shower.showerClass != kMajorShower) continue;
      const MeteorShowerActivityPeriod& period = task.periods.front();
      const double midnight =
          mjdAtLocalMidnight(dateFromModifiedJulianDay(period.peakMjd), 0, calendar);
      MeteorShower shower = task.shower;
      double best = 0;
      for (double mjd = midnight - 0.5; mjd < midnight + 1.5; mjd += 1.0 / 1440.0) {
        // A night has the month of its morning.
        const MeteorMoment day =
            momentOfDay(midnight + (mjd < midnight + 0.5 ? 0.0 : 1.0), calendar);
        const MeteorSkyModel model(place, day.year, day.month);
        sun.computePosition(true, mjd, day.deltaT);
        if (sun.horizontal().elevation_ > -0.3) continue;
        best = std::max(best, ratesOfShower(shower, model.skyAt(mjd, day.deltaT, sun, moon)).rate);
      }
      if (best == 0) {
        EXPECT_FALSE(period.hasRealPeak()) << shower.iauCode;
        continue;
      }
      // A radiant climbs a quarter of a degree in a minute, the step of both.
      EXPECT_NEAR(period.rateAtPeak / best, 1.0, 6e-3) << shower.iauCode << ' ' << name;
      EXPECT_LE(period.meanMeteorRate, period.rateAtPeak);
      EXPECT_LE(std::abs(period.realPeakMjd - period.peakMjd), 1.5) << shower.iauCode;
    }
  }
}

MeteorShowerActivityPeriod peakOf(std::string_view code, const ZVLocation& place, std::int64_t year,
                                  const Calendar& calendar) {
  for (const RealPeakTask& task : solved(tasksOfYear(place, year, calendar), place, calendar, 1)) {
    if (task.shower.iauCode == code) return task.periods.front();
  }
  throw std::invalid_argument(std::string(code));
}

// Perseids over Teide.  IMO calendars: 2026, new Moon on August 12, "perfect"; 2025, the
// Moon 84 % lit, four days after full.
TEST(RealPeak, TheMoonTakesItsShare) {
  const Calendar calendar(zoneNamed("Atlantic/Canary"));
  const MeteorShowerActivityPeriod dark = peakOf("PER", kTeide, 2026, calendar);
  EXPECT_LT(dark.moonPhaseAtPeak, 0.01);
  EXPECT_NEAR(dark.rateAtPeak, 85.0, 10.0);  // ZHR 100, radiant at 58 degrees
  EXPECT_EQ(dark.powerEnergy, 1.0);
  // The radiant climbs until the morning: dawn, the Sun at -18 degrees, ends the count.
  EXPECT_NEAR(dark.moonPhaseSunElevation, -18.0, 0.5);

  const MeteorShowerActivityPeriod bright = peakOf("PER", kTeide, 2025, calendar);
  EXPECT_NEAR(bright.moonPhaseAtPeak, 0.84, 0.03);
  EXPECT_EQ(bright.moonPhaseType, kWaningGibbous);
  EXPECT_GT(bright.moonPhaseMoonElevation, 20.0);
  EXPECT_LT(bright.rateAtPeak, dark.rateAtPeak / 2.0);
  EXPECT_LT(bright.powerEnergy, 0.5);
}

// Full Moons of 2025: November 5, 13:19 UT, at 356,980 km, the nearest of the year; March
// 14, 06:55 UT, at 401,700 km.
TEST(RealPeak, UnderAFullMoon) {
  const Calendar calendar(zoneNamed("Europe/Madrid"));
  for (const bool november : {false, true}) {
    const auto period = peakOf(november ? "AND" : "GNO", placeAt(40.4, -3.7), 2025, calendar);
    EXPECT_EQ(dayValue(*period.realPeakDate, calendar), november ? 5 : 14);
    EXPECT_EQ(period.moonPhaseType, kFullMoon);
    EXPECT_EQ(period.isSupermoon, november);
  }
}

// Before 1858 November 17 moments are negative numbers.
TEST(RealPeak, InTheYearOfTheGreatLeonids) {
  const Calendar calendar(zoneNamed("UTC"));
  const auto period = peakOf("LEO", placeAt(40.7, -74.0), 1833, calendar);
  EXPECT_LT(period.realPeakMjd, 0.0);
  EXPECT_GT(period.rateAtPeak, 5.0);
  EXPECT_LT(std::abs(period.realPeakMjd - period.peakMjd), 1.5);
}

// Sharing skies and threads only saves time: to the last bit the results are those of
// each shower alone.
TEST(RealPeak, SharingChangesNothing) {
  const Calendar calendar(zoneNamed("Europe/Oslo"));
  const ZVLocation place = placeAt(59.9, 10.7);
  const std::vector<RealPeakTask> tasks = tasksOfYear(place, 2026, calendar);
  const std::vector<RealPeakTask> one = solved(tasks, place, calendar, 1);
  const std::vector<RealPeakTask> four = solved(tasks, place, calendar, 4);
  ASSERT_EQ(one.size(), tasks.size());
  ASSERT_EQ(four.size(), tasks.size());
  for (std::size_t i = 0; i < tasks.size(); ++i) {
    const std::vector<RealPeakTask> alone = solved({tasks[i]}, place, calendar, 1);
    EXPECT_EQ(one[i].periods, alone[0].periods) << tasks[i].shower.iauCode;
    EXPECT_EQ(four[i].periods, alone[0].periods) << tasks[i].shower.iauCode;
  }
}

TEST(RealPeak, ASkyIsComputedOnce) {
  PeakSamples samples(kTeide, gmtCachedCalendar());
  ephemeris::PtSun sun(kTeide.getPtPosition());
  ephemeris::PtMoon moon(kTeide.getPtPosition());
  const SampleRun run{momentOfDay(61264.0, gmtCachedCalendar()), 61264.0, 61264.1, 5.0 / 1440.0};
  const std::vector<MeteorSky>& first = samples.skies(run, sun, moon);
  EXPECT_EQ(first.size(), 29U);  // both ends
  EXPECT_EQ(&samples.skies(run, sun, moon), &first);
}

}  // namespace
}  // namespace zenivo
