#include "meteors/MeteorShowerCache.h"

#include <gtest/gtest.h>

#include <fstream>
#include <thread>

#include "foundation/AtomicFile.h"
#include "meteors/Places.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

class MeteorShowerCacheTest : public testing::Test {
 protected:
  MeteorShower& perseids() { return showerWithCode(catalogue, "PER"); }

  static MeteorShowerActivityPeriod period(std::int64_t year, double realPeakMjd = 61265.2) {
    MeteorShowerActivityPeriod result;
    result.year = year;
    result.startDate = Date::withTimeIntervalSinceReferenceDate(8e8 + 0.25);
    result.endDate = Date::withTimeIntervalSinceReferenceDate(8.01e8);
    result.peakMjd = 61265.1;
    result.realPeakMjd = realPeakMjd;
    if (realPeakMjd != 0) result.realPeakDate = dateFromModifiedJulianDay(realPeakMjd);
    result.moonPhaseAtPeak = 0.1;
    result.moonPhaseZenithAngle = -0.2;
    result.moonPhaseMoonElevation = -30.3;
    result.moonPhaseSunElevation = -20.4;
    result.moonPhaseType = kWaxingCrescent;
    result.isSupermoon = true;
    result.rateAtPeak = 80.5;
    result.meanMeteorRate = 40.6;
    result.powerEnergy = 0.7;
    return result;
  }

  void writeFile(const std::string& content) const { std::ofstream(cache.file()) << content; }

  const PeakPlace teide{kTeide.coordinate, "Atlantic/Canary"};
  TemporaryFolder folder;
  MeteorShowers catalogue{kTeide};
  MeteorShowerCache cache{"meteorPeaks", folder.path()};
};

TEST_F(MeteorShowerCacheTest, ComesBackFromItsFile) {
  cache.setPlace(teide);
  cache.cacheMeteorShower(perseids(), 2026, period(2026), teide);
  cache.cacheMeteorShower(perseids(), 2027, period(2027), teide);
  ASSERT_TRUE(cache.save());

  MeteorShowerCache other("meteorPeaks", folder.path());
  other.load();
  EXPECT_EQ(other.cacheData(), cache.cacheData());
  EXPECT_EQ(other.accessedYears(), (std::vector<std::int64_t>{2026, 2027}));
  EXPECT_EQ(other.activityPeriodForMeteorShower(perseids(), 2026, teide), period(2026));
  EXPECT_FALSE(other.setPlace(teide));
  other.setCacheEnabled(false);
  EXPECT_FALSE(other.activityPeriodForMeteorShower(perseids(), 2026, teide));
}

TEST_F(MeteorShowerCacheTest, ABrokenFileIsReplaced) {
  cache.setPlace(teide);
  cache.cacheMeteorShower(perseids(), 2026, period(2026), teide);
  ASSERT_TRUE(cache.save());
  const std::string good = readFile(cache.file(), 1U << 20U).value();
  const auto replaced = [&](const std::string& from, const std::string& to) {
    std::string text = good;
    return text.replace(text.find(from), from.size(), to);
  };
  for (const std::string& broken :
       {std::string(), std::string("nonsense"), good.substr(0, good.size() / 2),
        replaced(">CacheData<", ">OtherData<")}) {
    writeFile(broken);
    MeteorShowerCache other("meteorPeaks", folder.path());
    other.load();
    EXPECT_EQ(other.cacheData(), CacheData());
    EXPECT_TRUE(other.setPlace(teide));
    other.cacheMeteorShower(perseids(), 2026, period(2026), teide);
    EXPECT_TRUE(other.save());
    EXPECT_EQ(readFile(cache.file(), 1U << 20U), good);
  }
  // What can be read is; a period that is none is missing, not nonsense.
  for (const std::string& spoiled :
       {replaced("<real>80.5</real>", "<real>nan</real>"),
        replaced("MeteorShowerActivityPeriod", "Period"), replaced(">7<", ">seven<")}) {
    writeFile(spoiled);
    cache.load();
    EXPECT_FALSE(cache.activityPeriodForMeteorShower(perseids(), 2026, teide)) << spoiled;
  }
}

TEST_F(MeteorShowerCacheTest, AFolderThatCannotBeMade) {
  std::ofstream(folder / "file") << "in the way";
  const MeteorShowerCache elsewhere("meteorPeaks", folder / "file" / "Caches");
  testing::internal::CaptureStderr();
  EXPECT_FALSE(elsewhere.save());
  EXPECT_NE(testing::internal::GetCapturedStderr().find("meteorPeaks.cache"), std::string::npos);
}

// A degree of the meridian is 111.3 km on the sphere.
TEST_F(MeteorShowerCacheTest, MovesUpToTenKilometresKeepIt) {
  const auto north = [this](double kilometres) {
    return PeakPlace{{28.27 + kilometres / 111.32, -16.64}, teide.zone};
  };
  EXPECT_TRUE(cache.setPlace(teide));
  cache.cacheMeteorShower(perseids(), 2026, period(2026), teide);
  EXPECT_FALSE(cache.setPlace(north(9)));
  EXPECT_EQ(cache.cacheData().place, teide);
  EXPECT_TRUE(cache.activityPeriodForMeteorShower(perseids(), 2026, teide));
  EXPECT_TRUE(cache.setPlace(north(11)));
  EXPECT_TRUE(cache.cacheData().activityPeriods.empty() && cache.accessedYears().empty());
  EXPECT_EQ(cache.cacheData().place, north(11));
  EXPECT_TRUE(cache.setPlace({}));
  EXPECT_TRUE(cache.setPlace({}));  // nowhere is near nowhere
}

// Midnight in Tokyo parts other nights than on the Canaries, and another one may be best.
TEST_F(MeteorShowerCacheTest, HoldsForOneZone) {
  const PeakPlace inTokyo{teide.coordinate, "Asia/Tokyo"};
  cache.setPlace(teide);
  cache.cacheMeteorShower(perseids(), 2026, period(2026), inTokyo);
  EXPECT_FALSE(cache.activityPeriodForMeteorShower(perseids(), 2026, teide));
  cache.cacheMeteorShower(perseids(), 2026, period(2026), teide);
  EXPECT_FALSE(cache.activityPeriodForMeteorShower(perseids(), 2026, inTokyo));
  ASSERT_TRUE(cache.save());
  MeteorShowerCache other("meteorPeaks", folder.path());
  other.load();
  EXPECT_TRUE(other.activityPeriodForMeteorShower(perseids(), 2026, teide));
  EXPECT_TRUE(other.setPlace(inTokyo));
  EXPECT_TRUE(other.cacheData().activityPeriods.empty());
}

TEST_F(MeteorShowerCacheTest, TheYearNotAccessedForLongestGoes) {
  using Years = std::vector<std::int64_t>;
  cache.setPlace(teide);
  cache.cacheMeteorShower(perseids(), 1990, period(1990, 0), teide);  // no real peak: ignored
  EXPECT_TRUE(cache.accessedYears().empty());
  const std::int64_t now = yearValue(Date::now(), Calendar(TimeZone::systemTimeZone()));
  for (const std::int64_t year :
       {now, now + 1, Years::value_type{1901}, Years::value_type{1902}, Years::value_type{1903},
        Years::value_type{1904}, Years::value_type{1905}}) {
    cache.cacheMeteorShower(perseids(), year, period(year), teide);
  }
  EXPECT_EQ(cache.cacheData().activityPeriods.size(), 7U);
  EXPECT_TRUE(cache.activityPeriodForMeteorShower(perseids(), 1901, teide));
  EXPECT_FALSE(cache.activityPeriodForMeteorShower(showerWithCode(catalogue, "LEO"), 1902, teide));
  cache.cacheMeteorShower(perseids(), 1906, period(1906), teide);
  // 1903 was accessed before 1901 and 1902; this year and the next stay, however old.
  EXPECT_EQ(cache.accessedYears(), (Years{1906, 1902, 1901, 1905, 1904, now + 1, now}));
  EXPECT_FALSE(cache.cacheData().activityPeriods.contains(1903));
}

// Peaks come in from the background while the screen reads them.
TEST_F(MeteorShowerCacheTest, IsSafeToShare) {
  cache.setPlace(teide);
  MeteorShower& shower = perseids();
  std::thread writer([&] {
    for (std::int64_t year = 2000; year < 2100; ++year) {
      cache.cacheMeteorShower(shower, year, period(year), teide);
      if (year % 25 == 0) cache.save();
    }
  });
  for (std::int64_t i = 0; i < 1000; ++i) {
    const auto found = cache.activityPeriodForMeteorShower(shower, 2000 + i % 100, teide);
    EXPECT_TRUE(!found || found->year == 2000 + i % 100);
    if (i % 100 == 0) cache.setPlace({{static_cast<double>(i) / 50.0, 0}, "GMT"});
  }
  writer.join();
  EXPECT_LE(cache.cacheData().activityPeriods.size(), 9U);
}

}  // namespace
}  // namespace zenivo
