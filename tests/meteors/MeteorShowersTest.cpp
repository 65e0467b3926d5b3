#include "meteors/MeteorShowers.h"

#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>
#include <set>

#include "foundation/AtomicFile.h"
#include "foundation/PropertyList.h"
#include "meteors/Places.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

using Json = nlohmann::json;

std::string shippedList() {
  return readFile(resourcePath("meteors.json"), kMeteorShowerListMaximumBytes).value();
}

TEST(MeteorShowerList, TheShippedOne) {
  const MeteorShowers catalogue(std::nullopt);
  const auto names = readPropertyListFile(resourcePath("en.lproj/MeteorShowers.strings"));
  ASSERT_TRUE(names && names->dictionary());
  std::set<std::int64_t> ids;
  for (const auto& shower : catalogue.showers()) {
    EXPECT_TRUE(ids.insert(shower->meteorId).second) << shower->name;
    EXPECT_NE(names->valueForKey(shower->name), nullptr) << shower->name;
    for (const double number :
         {shower->w, shower->r - 1.0, shower->speed, 1.0 * shower->startDay,
          1.0 * shower->startMonth, 1.0 * shower->endDay, 1.0 * shower->endMonth}) {
      EXPECT_GT(number, 0.0) << shower->name;
    }
  }
  EXPECT_EQ(ids.size(), 40U);
  EXPECT_EQ(names->dictionary()->size(), ids.size());
  EXPECT_EQ(showerWithCode(catalogue, "ETA").translatedName(), "η-Aquariids");
}

TEST(MeteorShowerList, BrokenOnesGiveNothing) {
  const Json good = Json::parse(shippedList());
  ASSERT_TRUE(meteorShowerItemsFromJson(good.dump()));
  for (const auto& [key, value] : good[0].items()) {
    Json missing = good;
    missing[3].erase(key);
    EXPECT_FALSE(meteorShowerItemsFromJson(missing.dump())) << key;
    Json wrong = good;
    wrong[3][key] = value.is_string() ? Json(1) : Json("1");
    EXPECT_FALSE(meteorShowerItemsFromJson(wrong.dump())) << key;
  }
  const auto with = [&](const char* key, Json value) {
    Json changed = good;
    changed[0][key] = std::move(value);
    return meteorShowerItemsFromJson(changed.dump());
  };
  EXPECT_FALSE(with("id", std::uint64_t{1} << 63U));
  EXPECT_FALSE(with("month", std::int64_t{1} << 40U));
  EXPECT_TRUE(with("a key of a later version", true));
  const std::string text = shippedList();
  const std::string deep(100000, '[');
  for (const std::string& broken :
       {std::string(), text.substr(0, text.size() / 2), text + "]", deep, std::string("{}"),
        std::string("[1]"), std::string("[[]]"), std::string("[{\"id\":1e999}]")}) {
    EXPECT_FALSE(meteorShowerItemsFromJson(broken)) << broken.substr(0, 40);
  }
}

TEST(MeteorShowerList, AMissingOrBrokenFileLeavesEmptyLists) {
  const TemporaryFolder folder;
  std::ofstream(folder / "broken.json") << "[{\"id\": 10}]";
  std::ofstream(folder / "long.json") << std::string(kMeteorShowerListMaximumBytes + 1, ' ');
  for (const char* name : {"missing.json", "broken.json", "long.json"}) {
    MeteorShowers catalogue(kTeide, folder / name);
    catalogue.calculateMeteorShowersActivitiesWithYear(2026, gmtCachedCalendar());
    catalogue.refreshActiveMeteorShowersForMjd(61264.0);
    EXPECT_TRUE(catalogue.showers().empty() && catalogue.activeShowers().empty()) << name;
  }
}

// 2026-08-12 20:00 UT.  The Perseids are active and peak first.
TEST(MeteorShowers, ActiveAndUpcoming) {
  const Calendar calendar(zoneNamed("Atlantic/Canary"));
  MeteorShowers catalogue(kTeide);
  const double mjd = 61264.833;
  catalogue.calculateMeteorShowersActivitiesWithYear(2026, calendar);
  catalogue.refreshActiveMeteorShowersForMjd(mjd);
  const auto codes = [](const MeteorShowers::List& list) {
    std::string text;
    for (const auto& shower : list) text += shower->iauCode + ' ';
    return text;
  };
  // IMO 2026: SDA to Aug 23, CAP to Aug 15, ERI to Aug 19, PER to Aug 24, KCG to Aug 28.
  EXPECT_EQ(codes(catalogue.activeShowers()), "SDA CAP ERI PER KCG ");
  EXPECT_EQ(codes(catalogue.upcomingShowers()), "AUR SPE ");
  catalogue.sortActiveAndUpcomingShowersForMjd(mjd);
  EXPECT_EQ(codes(catalogue.activeShowers()), "PER KCG ERI SDA CAP ");

  // A real peak of the kappa Cygnids in four hours, of the Perseids in six.
  for (const auto& [code, hours] : {std::pair("KCG", 4.0), std::pair("PER", 6.0)}) {
    auto& period = showerWithCode(catalogue, code).activityPeriods.front();
    period.realPeakMjd = mjd + hours / 24.0;
    period.realPeakDate = dateFromModifiedJulianDay(period.realPeakMjd);
  }
  catalogue.sortActiveAndUpcomingShowersForMjd(mjd);
  EXPECT_TRUE(codes(catalogue.activeShowers()).starts_with("KCG PER "));
  catalogue.clearPeaksInfo();
  catalogue.sortActiveAndUpcomingShowersForMjd(mjd);
  EXPECT_TRUE(codes(catalogue.activeShowers()).starts_with("PER KCG "));

  EXPECT_EQ(codes(catalogue.majorShowers()), "QUA LYR ETA SDA PER ORI LEO GEM URS ");  // the file's
  catalogue.sortShowersForMjd(mjd);
  EXPECT_EQ(codes(catalogue.majorShowers()), "SDA PER ORI LEO GEM URS QUA LYR ETA ");
}

TEST(MeteorShowers, TheOrderKnowsShowersWithoutPeriods) {
  MeteorShowers catalogue(kTeide);
  const MeteorShower& none = showerWithCode(catalogue, "LYR");
  MeteorShower& some = showerWithCode(catalogue, "GEM");
  some.calculateActivitiesWithYear(2026, gmtCachedCalendar());
  const Date date = some.activityPeriods[0].startDate.dateByAddingTimeInterval(-1.0);
  EXPECT_FALSE(MeteorShowers::compareShowersWithLhs(none, some, date, 61378.0));
  EXPECT_TRUE(MeteorShowers::compareShowersWithLhs(some, none, date, 61378.0));
  EXPECT_FALSE(MeteorShowers::compareShowersByPeakDateWithLhs(none, some, date));
  EXPECT_TRUE(MeteorShowers::compareShowersByPeakDateWithLhs(some, none, date));
}

}  // namespace
}  // namespace zenivo
