// zenivo eclipse and zenivo eclipses, against published circumstances.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "cli/Zenivo.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::HasSubstr;

double secondsBetween(const Json& contact, const std::string& expected) {
  if (!contact["time"]["time"].is_string()) return 1e9;
  const auto seconds = [](const std::string& text) {
    return parseMoment(text, TimeZone(), Date()).timeIntervalSince1970();
  };
  return std::abs(seconds(contact["time"]["time"]) - seconds(expected));
}

void expectMissing(const Json& contact) {
  EXPECT_EQ(contact["time"]["mjd"], -4) << contact;
  EXPECT_TRUE(contact["time"]["time"].is_null()) << contact;
  EXPECT_TRUE(contact["elevation"].is_null()) << contact;
}

// Contacts as PyEphem 4.1.4 has them (VSOP87, ELP2000) with the deltaT of the elements; totality
// in Dallas was announced for 13:40:43 to 13:44:35 local time.
TEST(EclipseCommand, TotalInDallas) {
  const Json found = answer("eclipse 2024-04-08 --at 32.7767,-96.7970 --zone America/Chicago");
  EXPECT_EQ(found["name"], "SE2024Apr08T");
  EXPECT_EQ(found["kind"], "solar");
  EXPECT_EQ(found["type"], 3);
  const Json local = found["local"];
  EXPECT_EQ(local["type"], 3);
  EXPECT_NEAR(local["magnitude"].get<double>(), 1.0558, 0.001);
  EXPECT_EQ(local["obscuration"], 1);
  const std::pair<const char*, const char*> contacts[] = {{"C1", "2024-04-08T17:23:12Z"},
                                                          {"C2", "2024-04-08T18:40:38Z"},
                                                          {"C3", "2024-04-08T18:44:27Z"},
                                                          {"C4", "2024-04-08T20:02:35Z"}};
  for (const auto& [key, time] : contacts) {
    EXPECT_LE(secondsBetween(local[key], time), 3) << key << local[key];
  }
  EXPECT_NEAR(local["max"]["elevation"].get<double>(), 64.6, 0.2);
  const std::string text =
      zenivo("eclipse SE2024Apr08T --at 32.7767,-96.7970 --zone America/Chicago").output;
  EXPECT_THAT(text, HasSubstr("Total solar eclipse, magnitude 1.056, 100 %"));
  EXPECT_THAT(text, HasSubstr("Totality 3 min 5"));
  EXPECT_THAT(text, HasSubstr("at all times but between C2 and C3 here"));
}

// On Majorca the Sun of 2026 August 12 sets after totality, before last contact; in Paris it
// was down before the eclipse of 2024 April 8 began.
TEST(EclipseCommand, TheHorizonHides) {
  const std::string palma = " --at 39.5696,2.6502 --zone Europe/Madrid";
  const Json sunset = answer("eclipse SE2026Aug12T" + palma)["local"];
  EXPECT_EQ(sunset["type"], 3);
  EXPECT_LE(secondsBetween(sunset["C2"], "2026-08-12T18:31:00Z"), 3);
  EXPECT_GT(sunset["C3"]["elevation"], 0);
  EXPECT_LT(sunset["C4"]["elevation"], 0);
  const auto lines = linesOf(zenivo("eclipse SE2026Aug12T" + palma).output);
  const auto lineWith = [&](const char* text) {
    return std::ranges::find_if(
        lines, [&](const std::string& line) { return line.find(text) != std::string::npos; });
  };
  EXPECT_LT(lineWith("C3"), lineWith("Sunset"));
  EXPECT_LT(lineWith("Sunset"), lineWith("C4"));
  EXPECT_EQ(lineWith("below the horizon"), lineWith("C4"));

  const Json night = answer("eclipse SE2024Apr08T --at Paris")["local"];
  EXPECT_EQ(night["type"], 0);
  EXPECT_TRUE(night["C1"]["time"]["time"].is_string());
  EXPECT_LT(night["max"]["elevation"], 0);
  EXPECT_THAT(zenivo("eclipse SE2024Apr08T --at Paris").output,
              HasSubstr("the Sun is below the horizon all the time"));
}

// F. Espenak's page of the eclipse of 2022 May 16, NASA/GSFC.
TEST(EclipseCommand, TotalOfTheMoon) {
  const Json found = answer("eclipse 2022-05-16 --at 0,-60");
  EXPECT_EQ(found["kind"], "lunar");
  EXPECT_EQ(found["type"], 3);
  const Json local = found["local"];
  EXPECT_EQ(local["type"], 3);
  EXPECT_NEAR(local["umbralMagnitude"].get<double>(), 1.414, 0.002);
  EXPECT_NEAR(local["penumbralMagnitude"].get<double>(), 2.373, 0.002);
  const std::pair<const char*, const char*> contacts[] = {
      {"P1", "01:32:07"}, {"U1", "02:27:53"}, {"U2", "03:29:03"}, {"mid", "04:11:28"},
      {"U3", "04:53:56"}, {"U4", "05:55:07"}, {"P4", "06:50:48"}};
  for (const auto& [key, time] : contacts) {
    EXPECT_LE(secondsBetween(local[key], std::string("2022-05-16T") + time + "Z"), 5) << key;
  }
}

TEST(EclipseCommand, SaysWhatIsSeen) {
  const std::pair<const char*, std::vector<const char*>> cases[] = {
      {"2026-08-12 --at Madrid",
       {"magnitude 0.999", "99.96 % of the Sun's disk", "at all times.", "within about 6 s"}},
      {"2021-11-19 --at -69,-140", {"Partial lunar eclipse, umbral magnitude 0.974"}},
      {"2025-03-14 --at Paris", {"at moonset 07:1", "umbral magnitude 0.84", "greatest is below"}},
      {"2025-09-07 --at Berlin", {"Totality 82 min 6 s, 75 min", "At moonrise 19:3"}},
      {"2025-03-29 --at 40.7127,-74.006", {"at sunrise 06:44", "26 % of the Sun's disk"}},
      {"LE2027Jul18N --at Sydney", {"penumbral magnitude 0.00", "not noticeable"}},
  };
  for (const auto& [question, texts] : cases) {
    const std::string text = zenivo(std::string("eclipse ") + question).output;
    for (const char* part : texts) EXPECT_THAT(text, HasSubstr(part));
    EXPECT_THAT(text, testing::Not(HasSubstr("100 %")));
  }
}

TEST(EclipseCommand, APlaceThatSeesNothing) {
  const Json solar = answer("eclipse SE2024Apr08T --at -34.6,-58.4")["local"];
  EXPECT_EQ(solar["type"], 0);
  EXPECT_EQ(solar["magnitude"], 0);
  for (const char* contact : {"C1", "C2", "C3", "C4"}) expectMissing(solar[contact]);
  EXPECT_TRUE(solar["max"]["time"]["time"].is_string());
  EXPECT_THAT(zenivo("eclipse SE2024Apr08T --at -34.6,-58.4").output, HasSubstr("does not reach"));

  const Json lunar = answer("eclipse LE2022May16T --at 0,100")["local"];
  EXPECT_EQ(lunar["type"], 0);
  for (const char* contact : {"P1", "U1", "U2", "U3", "U4", "P4"}) expectMissing(lunar[contact]);
  const Json sky =
      answer("sky --at 0,100 --time " + lunar["mid"]["time"]["time"].get<std::string>());
  EXPECT_NEAR(lunar["mid"]["elevation"], sky["moon"]["elevation"], 0.01);
}

TEST(EclipseCommand, JsonKeys) {
  const auto keysFor = [](std::initializer_list<const char*> values,
                          std::initializer_list<const char*> contacts) {
    std::vector<std::string> keys{"name",
                                  "kind",
                                  "type",
                                  "zone",
                                  "place",
                                  "place.latitude",
                                  "place.longitude",
                                  "place.altitude",
                                  "local",
                                  "local.type"};
    for (const char* value : values) keys.push_back(std::string("local.") + value);
    for (const char* contact : contacts) {
      for (const char* member :
           {"", ".time", ".time.mjd", ".time.time", ".elevation", ".azimuth"}) {
        keys.push_back(std::string("local.") + contact + member);
      }
    }
    return keys;
  };
  EXPECT_THAT(keysOf(answer("eclipse SE2025Mar29P --at Paris")),
              testing::IsSupersetOf(
                  keysFor({"magnitude", "obscuration"}, {"C1", "C2", "max", "C3", "C4"})));
  EXPECT_THAT(keysOf(answer("eclipse LE2025Mar14T --at Paris")),
              testing::IsSupersetOf(keysFor({"umbralMagnitude", "penumbralMagnitude"},
                                            {"P1", "U1", "U2", "mid", "U3", "U4", "P4"})));
}

// Eclipses that are not seen from the place are passed over, one in progress is not.
TEST(EclipseCommand, TheNextOneSeen) {
  struct Case {
    const char* arguments;
    const char* name;
  };
  const Case cases[] = {
      {"--at Paris --kind solar --date 2024-01-01", "SE2025Mar29P"},  // not April and October 2024
      {"--at Paris --kind solar --time 2025-03-29T10:30Z", "SE2025Mar29P"},
      {"--at Paris --kind solar --time 2025-03-29T14:00Z", "SE2026Aug12T"},
      {"--at Sydney --kind solar --date 2026-01-01", "SE2028Jul22T"},
      {"--at Paris --kind lunar --date 2025-03-01", "LE2025Mar14T"},
      {"next --at Dallas --date 2024-03-20", "LE2024Mar25N"},
  };
  for (const Case& c : cases) {
    const Json found = answer(std::string("eclipse ") + c.arguments);
    EXPECT_EQ(found["name"], c.name) << c.arguments;
    EXPECT_GT(found["local"]["type"], 0) << c.arguments;
  }
}

// Greatest eclipse in the night of 2025 September 7 (18:12 UT): in Auckland the 8th has begun.
TEST(EclipseCommand, ADateIsOfTheZoneOrOfTheName) {
  for (const char* date : {"2025-09-07", "2025-09-08"}) {
    EXPECT_EQ(answer(std::string("eclipse --at Auckland ") + date)["name"], "LE2025Sep07T");
  }
  EXPECT_EQ(zenivo("eclipse --at Paris 2025-09-08").exitCode, 2);
}

// NASA's canon: 929 solar and 944 lunar eclipses from 1801 to 2200.
TEST(EclipsesCommand, TheCatalogue) {
  const Json all = answer("eclipses");
  EXPECT_TRUE(all["place"].is_null());
  EXPECT_EQ(all["eclipses"].size(), 929U + 944U);
  EXPECT_TRUE(all["eclipses"][0]["localType"].is_null());
  EXPECT_EQ(answer("eclipses --kind lunar")["eclipses"].size(), 944U);
  const Json decade = answer("eclipses --from 2021-01-01 --to 2030-12-31 --kind solar");
  EXPECT_EQ(decade["eclipses"].size(), 22U);
  EXPECT_EQ(answer("eclipses --from 2024-04-08 --to 2024-04-08")["eclipses"].size(), 1U);
  EXPECT_EQ(answer("eclipses --from 2024-04-09 --to 2024-04-09")["eclipses"].size(), 0U);
}

// What the list says of a place is what the eclipse itself says.
TEST(EclipsesCommand, AgreesWithEachEclipse) {
  const std::string at = " --at Reykjavik";
  const Json list = answer("eclipses --from 2024-01-01 --to 2027-12-31" + at);
  EXPECT_THAT(
      keysOf(list),
      testing::ElementsAre("zone", "place", "place.latitude", "place.longitude", "place.altitude",
                           "catalogue", "catalogue.firstYear", "catalogue.lastYear", "eclipses",
                           "eclipses.[]", "eclipses.[].name", "eclipses.[].kind",
                           "eclipses.[].type", "eclipses.[].time", "eclipses.[].time.mjd",
                           "eclipses.[].time.time", "eclipses.[].localType"));
  int seen = 0;
  for (const Json& listed : list["eclipses"]) {
    const Json one = answer("eclipse " + listed["name"].get<std::string>() + at);
    EXPECT_EQ(one["local"]["type"], listed["localType"]) << listed;
    EXPECT_EQ(one["type"], listed["type"]) << listed;
    EXPECT_EQ(one["kind"], listed["kind"]) << listed;
    seen += listed["localType"] > 0;
  }
  EXPECT_GT(seen, 5);
}

TEST(EclipsesCommand, TextNamesZoneAndYears) {
  const std::string text =
      zenivo("eclipses --from 1790-01-01 --to 1801-12-31 --zone Asia/Tokyo").output;
  EXPECT_THAT(text, HasSubstr("Asia/Tokyo, time of greatest eclipse"));
  EXPECT_THAT(text, HasSubstr("The catalogue holds the eclipses of 1801 to 2200."));
}

TEST(EclipsesCommand, WithoutItsCatalogueItSaysSo) {
  const Outcome outcome = shell("ZENIVO_RESOURCES=/nonexistent zenivo eclipses");
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_THAT(outcome.error, HasSubstr("zenivo: the catalogue of eclipses cannot be read"));
}

}  // namespace
}  // namespace zenivo::cli
