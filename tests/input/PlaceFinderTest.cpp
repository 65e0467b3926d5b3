#include "input/PlaceFinder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "foundation/TimeZone.h"
#include "input/InputError.h"
#include "input/NearestZone.h"
#include "input/TextFolding.h"

namespace zenivo {
namespace {

class Places : public testing::Test {
 protected:
  static const GeoNames& geoNames() {
    static const GeoNames names;
    return names;
  }
  static std::string found(std::string_view query) {
    try {
      return findPlace(geoNames(), query).label;
    } catch (const InputError& error) {
      return error.what();
    }
  }
};

TEST_F(Places, NamesMeanWhatPeopleMean) {
  const std::pair<const char*, const char*> cases[] = {
      {"Paris", "Paris, Île-de-France, FR"},  // and not the one in Texas
      {"PARIS", "Paris, Île-de-France, FR"},
      {"Paris, TX", "Paris, Texas, US"},
      {"paris,texas,usa", "Paris, Texas, US"},
      {"London", "London, England, GB"},
      {"London, UK", "London, England, GB"},
      {"London, Canada", "London, Ontario, CA"},
      {"Portland, US", "Portland, Oregon, US"},
      {"Portland, ME", "Portland, Maine, US"},  // also the code of Montenegro
      {"Portland, Oregon", "Portland, Oregon, US"},
      {"Athens", "Athens, Attica, GR"},  // a capital beats the namesakes
      {"Rome", "Rome, Latium, IT"},      // though Lomé is called so in some tongue
      {"Roma", "Rome, Latium, IT"},
      {"München", "Munich, Bavaria, DE"},
      {"munchen", "Munich, Bavaria, DE"},
      {"Санкт-Петербург", "Saint Petersburg, St.-Petersburg, RU"},
      {"東京", "Tokyo, Tōkyō, JP"},
      {"st louis", "St. Louis, Missouri, US"},
      {"saint etienne", "Saint-Étienne, Rhône-Alpes, FR"},
      {"Tromso", "Tromsø, Troms, NO"},
      {"New York", "New York City, New York, US"},
      {"Washington, D.C.", "Washington, D.C., US"},
      {"Washington, DC", "Washington, D.C., US"},
      {"Monaco", "Monaco, MC"},
  };
  for (const auto& [query, label] : cases) EXPECT_EQ(found(query), label) << query;
}

TEST_F(Places, AmbiguousNamesListTheirCandidates) {
  EXPECT_THAT(found("Springfield"),
              testing::AllOf(testing::HasSubstr("\"Springfield\" is ambiguous"),
                             testing::HasSubstr("\"Springfield, Missouri, US\""),
                             testing::HasSubstr("\"Springfield, Massachusetts, US\"")));
  EXPECT_THAT(found("San Jose"), testing::AllOf(testing::HasSubstr("\"San Jose, California, US\""),
                                                testing::HasSubstr("\"San José, CR\"")));
  EXPECT_THAT(found("Pariss"), testing::HasSubstr("did you mean \"Paris, Île-de-France, FR\""));
  EXPECT_THAT(found("Paris, Atlantis"), testing::HasSubstr("\"Paris, Île-de-France, FR\""));
  EXPECT_EQ(found("Xqzzy"), "no city named \"Xqzzy\" is known");
  EXPECT_THAT(found(""), testing::HasSubstr("no city named"));
  EXPECT_THAT(found(", FR"), testing::HasSubstr("no city named"));
}

// A label that a message shows can be typed back.  Asked of every two-hundredth city;
// it may be ambiguous only with a namesake of the same region.
TEST_F(Places, LabelsLeadBackToTheirCity) {
  int asked = 0;
  geoNames().forEachCity([&](const City& city) {
    if (asked++ % 200 != 0) return;
    const std::string label = placeLabel(geoNames(), city);
    EXPECT_THAT(found(label), testing::HasSubstr(label));
  });
  EXPECT_GT(asked, 20'000);
}

TEST_F(Places, EveryZoneOfTheListIsKnown) {
  std::set<std::string> zones;
  geoNames().forEachCity([&](const City& city) { zones.emplace(city.timeZone()); });
  EXPECT_GT(zones.size(), 300U);
  for (const std::string& zone : zones) {
    EXPECT_TRUE(TimeZone::timeZoneWithName(zone)) << zone;
  }
}

TEST_F(Places, NearestZones) {
  struct Case {
    const char* where;
    double latitude, longitude;
    const char* zone;
    const char* origin;
  };
  const Case cases[] = {
      {"Eiffel tower", 48.8584, 2.2945, "Europe/Paris", "GeoNames"},
      {"Niagara falls, Canada", 43.0896, -79.0849, "America/Toronto", "of Niagara"},
      {"Svalbard", 78.22, 15.65, "Arctic/Longyearbyen", "of Longyearbyen, 0 km away; GeoNames"},
      {"Easter Island", -27.11, -109.35, "Pacific/Easter", "time zone database"},
      {"McMurdo", -77.85, 166.67, "Antarctica/McMurdo", "time zone database"},
      {"Suva, across the date line", -18.14, 178.44, "Pacific/Fiji", "GeoNames"},
      {"North Atlantic", 45.0, -35.0, "Etc/GMT+2", "nautical"},
      {"North Pacific, east", 40.0, 179.9, "Etc/GMT-12", "nautical"},
      {"North Pacific, west", 40.0, -179.9, "Etc/GMT+12", "nautical"},
      {"North pole", 90.0, 0.0, "Etc/GMT", "nautical"},
      {"South pole", -90.0, 180.0, "Etc/GMT-12", "nautical"},
  };
  for (const Case& c : cases) {
    const ZoneGuess guess =
        nearestZone(geoNames(), ZVLocation(Coordinate{c.latitude, c.longitude}));
    EXPECT_EQ(guess.name, c.zone) << c.where;
    EXPECT_THAT(guess.origin, testing::HasSubstr(c.origin)) << c.where;
    EXPECT_TRUE(TimeZone::timeZoneWithName(guess.name)) << c.where;
  }
  EXPECT_EQ(nauticalZone(7.4), "Etc/GMT");
  EXPECT_EQ(nauticalZone(7.6), "Etc/GMT-1");
  EXPECT_EQ(nauticalZone(-7.6), "Etc/GMT+1");
}

TEST(GeoNamesFiles, AMissingListIsSaid) {
  EXPECT_THROW(GeoNames("/nowhere"), std::runtime_error);
}

TEST(TextFolding, LettersWithoutCaseAndAccents) {
  TextFolder folder;
  EXPECT_EQ(folder.fold("  Saint-Étienne (42)"), U"saintetienne42");
  EXPECT_EQ(folder.fold("GROSSE STRAẞE"), folder.fold("große strasse"));
  EXPECT_EQ(folder.fold("ΑΘΉΝΑ"), folder.fold("αθήνα"));
  EXPECT_NE(folder.fold("दिल्ली"), folder.fold("दल्ला"));  // vowel signs are letters
  EXPECT_EQ(folder.fold("\xff\xc3"), U"");
  EXPECT_TRUE(folder.foldsTo("Île", folder.fold("ile")));
  EXPECT_FALSE(folder.foldsTo("Île", folder.fold("il")));
  EXPECT_FALSE(folder.foldsTo("Il", folder.fold("ile")));
}

}  // namespace
}  // namespace zenivo
