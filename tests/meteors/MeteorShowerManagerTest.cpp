#include "meteors/MeteorShowerManager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "engine/MoonlessHours.h"
#include "meteors/Places.h"
#include "support/TemporaryFolder.h"
#include "time/PtDateTime.h"

namespace zenivo {
namespace {

LocationInfoData at(const PtDateTime& moment, const std::optional<ZVLocation>& place = kTeide) {
  return {dateWithPtDateTime(moment), place, zoneNamed("Atlantic/Canary")};
}

class Listener : public MeteorShowerManagerDelegate {
 public:
  void didUpdateShowersPeaks() override {
    EXPECT_TRUE(MainQueue::isMainThread());
    ++updates;
  }
  void didFinishShowersPeaks() override { ++finished; }

  int updates = 0;
  int finished = 0;
};

class MeteorShowerManagerTest : public testing::Test {
 protected:
  void runUntilFinished() {
    mainQueue().runUntil([&] { return listener->finished > 0; });
  }

  TimeZone zone = zoneNamed("Atlantic/Canary");
  Calendar calendar{zone};
  TemporaryFolder folder;
  std::shared_ptr<MeteorShowerCache> cache =
      std::make_shared<MeteorShowerCache>("meteorPeaks", folder.path());
  std::shared_ptr<Listener> listener = std::make_shared<Listener>();
};

// The evening before the Perseids' maximum of 2026, new Moon; the radiant is low.
TEST_F(MeteorShowerManagerTest, TheNightOfThePerseids) {
  MeteorShowerManager manager(at({2026, 8, 12, 21, 0}), nullptr);
  const MeteorShower& perseids = *manager.meteorShowerWithId(7);
  EXPECT_EQ(manager.maxPeakInfo().bestMeteorShower->meteorId, 7);
  EXPECT_EQ(manager.selectedMeteorShower()->meteorId, 7);
  EXPECT_EQ(manager.activeAndUpcomingShowers().front()->showerClass, kMajorShower);
  const MeteorShowerActivityPeriod& period = *manager.activityPeriodForMeteorShowerId(7);
  EXPECT_NEAR(manager.maxPeakInfo().mjd, period.realPeakMjd, 2.0 / 1440.0);
  EXPECT_NEAR(manager.maxPeakInfo().rate, period.rateAtPeak + 5.0, 5.0);  // with the other showers'
  EXPECT_NEAR(manager.currentMeteorRate(), 20.0F, 20.0F);
  EXPECT_NEAR(perseids.elevation, 2.0, 3.0);
  EXPECT_EQ(manager.moonPhase().phase, kNewMoon);
  EXPECT_NEAR(manager.moonlessHours(), 7.7, 0.3);

  // A jump to the best minute: the rate of the moment, of the night and of the curve agree.
  EXPECT_FALSE(manager.isPeakDay(perseids));
  EXPECT_TRUE(manager.jumpToMjdDate(period.realPeakMjd + 0.3));  // after sunrise
  EXPECT_TRUE(manager.jumpToMjdDate(manager.activityPeriodForMeteorShowerId(7)->realPeakMjd));
  EXPECT_TRUE(manager.isPeakDay(perseids));
  EXPECT_FALSE(manager.isPeakDay(*manager.meteorShowerWithId(5)));
  EXPECT_NEAR(manager.currentMeteorRate(), manager.maxPeakInfo().rate, 0.1);
  EXPECT_EQ(manager.limitingMagnitude(), kDarkSkyMagnitude);
  const auto& curve = manager.currentDayInfo().elevationsAndRates;
  const auto best = std::ranges::max_element(curve, {}, &MeteorGraphInfoAtMjd::rate);
  EXPECT_NEAR(best->rate, manager.maxPeakInfo().rate, 0.5);
  EXPECT_NEAR(best->mjd, manager.maxPeakInfo().mjd, 0.006);
}

// Wherever a manager comes from, at a moment it shows what one opened there shows.
TEST_F(MeteorShowerManagerTest, JumpsEndWhereANewOneBegins) {
  MeteorShowerManager manager(at({2026, 8, 12, 21, 0}), nullptr);
  std::mt19937_64 random(20260812);
  std::uniform_real_distribution<double> steps(-0.25, 0.25);
  double mjd = manager.currentMjdDate();
  for (int i = 0; i < 40; ++i) {
    // A day at a time from August 13 on, over the ends of two showers, then any way.
    mjd += i < 8 ? 1.0 : i % 10 == 9 ? 40.0 * steps(random) : steps(random);
    if (i == 25) mjd += 365.0;
    manager.jumpToMjdDate(mjd);
    manager.calculateRealTimeData();
    MeteorShowerManager direct({dateFromModifiedJulianDay(mjd, true), kTeide, zone}, nullptr);
    ASSERT_NEAR(direct.meteorMjdPeakThreshold(), manager.meteorMjdPeakThreshold(), 1e-9) << i;
    ASSERT_EQ(direct.maxPeakInfo().mjd, manager.maxPeakInfo().mjd) << i;
    ASSERT_NEAR(direct.maxPeakInfo().rate, manager.maxPeakInfo().rate, 1e-9) << i;
    ASSERT_EQ(direct.moonlessHours(), manager.moonlessHours()) << i;
    ASSERT_NEAR(direct.currentMeteorRate(), manager.currentMeteorRate(), 0.05F) << i;
    if (!manager.selectedMeteorShower()) continue;
    const auto selected = direct.meteorShowerWithId(manager.selectedMeteorShower()->meteorId);
    direct.selectMeteorShower(selected);
    for (std::size_t day = 0; day < 3; ++day) {
      ASSERT_EQ(direct.daysInfo()[day].mjdSunSet, manager.daysInfo()[day].mjdSunSet) << i;
      ASSERT_EQ(direct.daysInfo()[day].nightIntervals, manager.daysInfo()[day].nightIntervals);
      ASSERT_EQ(direct.daysInfo()[day].elevationsAndRates,
                manager.daysInfo()[day].elevationsAndRates)
          << i << " day " << day;
    }
  }
}

TEST_F(MeteorShowerManagerTest, WhatAJumpComputes) {
  MeteorShowerManager manager(at({2026, 11, 17, 12, 0}), nullptr);
  const double midnight = manager.mjdEnd();
  EXPECT_FALSE(manager.jumpToMjdDate(midnight - 0.05));  // the same night
  EXPECT_FALSE(manager.jumpToMjdDate(midnight + 0.05));  // over midnight, the same night
  EXPECT_EQ(manager.mjdStart(), midnight);
  EXPECT_EQ(manager.currentDayInfoForMilkyWayInfo().mjdEnd, midnight);
  EXPECT_TRUE(manager.jumpToMjdDate(midnight + 0.5));  // over sunrise
  EXPECT_EQ(manager.currentDayInfoForMilkyWayInfo().mjdStart, midnight);
  EXPECT_TRUE(manager.jumpToMjdDate(midnight - 0.2));  // more than 0.2 days
  EXPECT_TRUE(manager.jumpToMjdDate(midnight + 60.0));
  EXPECT_EQ(manager.meteorShowerWithId(7)->activityPeriods.front().year, 2027);
}

// No place, the poles, polar day and night: sentinels and zeroes, never not-a-number.
TEST_F(MeteorShowerManagerTest, WhereThereIsNothingToSee) {
  const MeteorShowerManager nowhere(at({2026, 8, 12, 21, 0}, placeAt(91, 0)), cache);
  EXPECT_FALSE(nowhere.location());
  EXPECT_FALSE(nowhere.activeShowers().empty());
  EXPECT_EQ(nowhere.currentMeteorRate() + nowhere.moonlessHours(), 0.0F);
  EXPECT_EQ(nowhere.maxPeakInfo().mjd, kAlwaysBelow);
  EXPECT_TRUE(nowhere.currentDayInfo().elevationsAndRates.empty());

  for (const double latitude : {90.0, -90.0, 70.0, -75.0}) {
    for (const int month : {3, 6, 8, 9, 12}) {
      const MeteorShowerManager manager(at({2026, month, 21, 10, 0}, placeAt(latitude, 0)),
                                        nullptr);
      const MeteorMaxPeakInfo& peak = manager.maxPeakInfo();
      EXPECT_EQ(peak.mjd == kAlwaysBelow, peak.rate == 0.0) << latitude << ' ' << month;
      if (manager.currentDayInfo().mjdSunRise == kAlwaysAbove) {
        EXPECT_EQ(peak.mjd, kAlwaysBelow);
        EXPECT_EQ(peak.bestMeteorShower, manager.activeShowers().at(0));
      }
      for (const MeteorDayInfoData& day : manager.daysInfo()) {
        for (const MeteorGraphInfoAtMjd& info : day.elevationsAndRates) {
          ASSERT_TRUE(info.rate >= 0.0F &&
                      std::isfinite(info.rate + info.moonElevation + info.meteorElevation));
        }
      }
      const float rate = manager.currentMeteorRate();
      EXPECT_TRUE(rate >= 0.0F && std::isfinite(rate)) << latitude << ' ' << month;
      EXPECT_TRUE(manager.moonlessHours() >= 0.0F) << latitude << ' ' << month;
    }
  }
}

// A year's table, and the same from the file of the cache.
TEST_F(MeteorShowerManagerTest, ACalendarOfAYear) {
  CacheData computed;
  for (const bool fromFile : {false, true}) {
    const auto theCache = std::make_shared<MeteorShowerCache>("meteorPeaks", folder.path());
    theCache->load();
    MeteorShowerManager manager(at({2020, 5, 5, 12, 0}), true, theCache);
    listener = std::make_shared<Listener>();
    manager.setDelegate(listener);
    manager.calculateMeteorShowerActivitesForYear(2026, fromFile);
    EXPECT_EQ(manager.currentDate(), firstDayOfYear(2026, calendar));
    runUntilFinished();
    EXPECT_EQ(listener->updates, fromFile ? 40 : 0);
    for (const auto& shower : manager.majorShowers()) {
      for (const MeteorShowerActivityPeriod& period : shower->activityPeriods) {
        EXPECT_TRUE(period.hasRealPeak()) << shower->iauCode << ' ' << period.year;
      }
    }
    EXPECT_EQ(theCache->cacheData() == computed, fromFile);
    computed = theCache->cacheData();
  }
}

// A peak that is cached is taken as it is.
TEST_F(MeteorShowerManagerTest, OneShowerOnly) {
  MeteorShowerManager manager(at({2026, 5, 5, 12, 0}), 4, true, cache);
  manager.setDelegate(listener);
  manager.calculateMeteorShowerActivitesForYear(2026);
  EXPECT_EQ(listener->finished, 1);  // at once
  for (const auto& shower : manager.meteorShowers().showers()) {
    for (const MeteorShowerActivityPeriod& period : shower->activityPeriods) {
      EXPECT_EQ(period.hasRealPeak(), shower->meteorId == 4);
    }
  }
  MeteorShowerActivityPeriod planted = cache->cacheData().activityPeriods.at(2026).at(4);
  planted.rateAtPeak = 12345;
  cache->cacheMeteorShower(*manager.meteorShowerWithId(4), 2026, planted, cache->cacheData().place);
  MeteorShowerManager second(at({2026, 12, 1, 12, 0}), 4, false, cache);
  second.calculatePeakForShowerId(4, second.currentDate());
  EXPECT_EQ(second.activityPeriodForMeteorShowerId(4)->rateAtPeak, 12345);
}

// Requests are gathered for 0.2 s; the peaks come in shower by shower, and the file is
// written in the end.
TEST_F(MeteorShowerManagerTest, PeaksFromTheBackground) {
  MeteorShowerManager manager(at({2026, 8, 12, 21, 0}), cache);
  manager.setDelegate(listener);
  for (int i = 0; i < 5; ++i) manager.calculateCurrentLocationShowersPeaksInBackground();
  EXPECT_FALSE(manager.meteorShowerWithId(20)->activityPeriods[1].hasRealPeak());
  runUntilFinished();
  mainQueue().runFor(0.3);
  EXPECT_EQ(listener->finished, 1);
  EXPECT_EQ(listener->updates, 40);
  EXPECT_TRUE(manager.meteorShowerWithId(20)->activityPeriods[1].hasRealPeak());
  EXPECT_TRUE(std::filesystem::exists(cache->file()));
}

// A job that runs when place or zone change delivers nothing for the old ones: neither to
// the showers nor to the cache.
TEST_F(MeteorShowerManagerTest, AMoveSupersedesTheJob) {
  const ZVLocation sydney = placeAt(-33.9, 151.2);
  MeteorShowerManager manager(at({2026, 8, 12, 21, 0}), cache);
  manager.setDelegate(listener);
  for (int i = 0; i < 3; ++i) {
    manager.calculateCurrentLocationShowersPeaks(true);
    mainQueue().runFor(0.005);
    manager.updateLocation(i % 2 == 0 ? sydney : kTeide);
    manager.calculateCurrentLocationShowersPeaks(true);
    manager.timeZoneUpdated(i % 2 == 0 ? zone : zoneNamed("Asia/Tokyo"));
  }
  listener->finished = 0;
  runUntilFinished();
  EXPECT_EQ(cache->cacheData().place.coordinate, sydney.coordinate);
  const auto untouched = std::make_shared<MeteorShowerCache>("other", folder.path());
  MeteorShowerManager direct(at({2026, 8, 12, 21, 0}, sydney), untouched);
  listener->finished = 0;
  direct.setDelegate(listener);
  runUntilFinished();
  EXPECT_EQ(cache->cacheData(), untouched->cacheData());
  for (std::size_t i = 0; i < 40; ++i) {
    EXPECT_EQ(manager.meteorShowers().showers()[i]->activityPeriods,
              direct.meteorShowers().showers()[i]->activityPeriods);
  }
}

// While the background computes, the main thread reads, sorts, jumps and selects; in the
// end the manager goes before its job.
TEST_F(MeteorShowerManagerTest, TheMainThreadGoesOnMeanwhile) {
  auto manager = std::make_unique<MeteorShowerManager>(at({2026, 12, 29, 21, 0}), cache);
  manager->setDelegate(listener);
  for (int i = 0; i < 8; ++i) {
    manager->calculateCurrentLocationShowersPeaks(true);
    manager->jumpToMjdDate(manager->currentMjdDate() + 0.6);
    manager->calculateRealTimeData();
    manager->selectMeteorShower(manager->activeAndUpcomingShowers().back());
    mainQueue().runFor(0.01);
    if (i == 5) manager->timeZoneUpdated(zoneNamed("Asia/Tokyo"));
  }
  manager->calculateCurrentLocationShowersPeaks(true);
  manager.reset();
  listener->updates = 0;
  listener->finished = 0;
  mainQueue().runFor(0.3);
  EXPECT_EQ(listener->updates + listener->finished, 0);
}

TEST_F(MeteorShowerManagerTest, AnotherZoneIsAnotherDay) {
  MeteorShowerManager manager(at({2026, 8, 12, 21, 0}), nullptr);
  const double before = manager.mjdStart();
  manager.timeZoneUpdated(zoneNamed("Asia/Tokyo"));
  EXPECT_NEAR(manager.mjdStart() - before, 1.0 - 8.0 / 24.0, 1e-9);
  // 06:00 in Tokyo, 22:00 on Teide: the same night.
  EXPECT_EQ(manager.maxPeakInfo().bestMeteorShower->meteorId, 7);
  EXPECT_NEAR(manager.maxPeakInfo().mjd, 61265.22, 0.02);
}

}  // namespace
}  // namespace zenivo
