// zenivo find, against published sights and itself.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "cli/Zenivo.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::HasSubstr;

std::vector<double> elevationsOf(const Json& results) {
  std::vector<double> elevations;
  for (const Json& result : results) elevations.push_back(result["elevation"]);
  return elevations;
}

// The full Sun above the end of the streets of Manhattan's grid, 299 degrees from true
// north: 2024 May 29, 20:12, and July 12, 20:20 (American Museum of Natural History).
TEST(Find, SunAtTheEndOfTheStreet) {
  const Json found = answer(
      "find sun --at 40.7527,-73.9772 --zone America/New_York --azimuth 299 --elevation 0.8 "
      "--azimuth-tolerance 0.15 --elevation-tolerance 0.15 --from 2024-05-01 --to 2024-08-01");
  std::set<std::string> days;
  for (const Json& result : found["results"]) {
    const std::string time = result["time"]["time"];
    days.insert(time.substr(0, 10));
    EXPECT_THAT(time.substr(11, 5), testing::AllOf(testing::Ge("20:10"), testing::Le("20:22")));
  }
  EXPECT_TRUE(days.contains("2024-05-29"));
  EXPECT_TRUE(days.contains("2024-07-12"));
  EXPECT_LE(days.size(), 6U);
}

TEST(Find, JsonKeys) {
  const std::string where = " --at Paris --azimuth 120 --from 2026-03-01 --to 2026-03-31";
  const std::vector<std::string> head{"body",
                                      "from",
                                      "to",
                                      "zone",
                                      "place",
                                      "place.latitude",
                                      "place.longitude",
                                      "place.altitude",
                                      "results",
                                      "results.[]",
                                      "results.[].time",
                                      "results.[].time.mjd",
                                      "results.[].time.time",
                                      "results.[].positionTime",
                                      "results.[].positionTime.mjd",
                                      "results.[].positionTime.time"};
  for (const bool isMoon : {false, true}) {
    std::vector<std::string> keys = head;
    for (const char* key : {"azimuth", "elevation", "positive"}) {
      keys.push_back(std::string("results.[].") + key);
    }
    if (isMoon) {
      for (const char* key : {"phase", "waxing", "zenithAngle", "sunElevation"}) {
        keys.push_back(std::string("results.[].") + key);
      }
    }
    keys.insert(keys.end(), {"message", "complete"});
    const Json found = answer((isMoon ? "find moon" : "find sun") + where);
    EXPECT_THAT(keysOf(found), testing::ElementsAreArray(keys));
    EXPECT_TRUE(found["message"].is_null());
    EXPECT_EQ(found["complete"], true);
    for (const Json& result : found["results"]) {
      EXPECT_NEAR(result["azimuth"].get<double>(), 120, 0.5);
      EXPECT_EQ(result["positive"], result["elevation"] >= (isMoon ? 0 : -1));
    }
  }
}

// What is reported stands so in the sky of that moment.
TEST(Find, AgreesWithTheSky) {
  const Json found = answer(
      "find moon --at 64.15,-21.94 --azimuth 200 --from 2026-03-01 --to 2026-03-05 --all-passages");
  ASSERT_FALSE(found["results"].empty());
  for (const Json& result : found["results"]) {
    const Json sky =
        answer("sky --at 64.15,-21.94 --time " + result["time"]["time"].get<std::string>());
    EXPECT_NEAR(sky["moon"]["azimuth"].get<double>(), 200, 0.005);
    EXPECT_NEAR(sky["moon"]["elevation"], result["elevation"], 0.005);
    EXPECT_NEAR(sky["moon"]["illumination"], result["phase"], 1e-4);
    EXPECT_EQ(sky["moon"]["waxing"], result["waxing"]);
    EXPECT_NEAR(sky["moon"]["zenithAngle"], result["zenithAngle"], 0.05);
    EXPECT_NEAR(sky["sun"]["elevation"], result["sunElevation"], 0.005);
  }
}

// On the equator the azimuth of the Sun of mid-December falls to less than 113.4 degrees at
// sunrise and grows again: 114 degrees is passed twice a day, once below the horizon.
TEST(Find, AllPassagesAreMore) {
  const std::string search =
      "find sun --at 0,0 --zone UTC --azimuth 114 --from 2026-12-10 --to 2026-12-31";
  EXPECT_LE(answer(search)["results"].size(), 22U);
  const Json all = answer(search + " --all-passages")["results"];
  EXPECT_EQ(all.size(), 44U);
  for (const Json& result : all) EXPECT_NEAR(result["azimuth"].get<double>(), 114, 0.005);
}

TEST(Find, PeriodsAreWholeLocalDays) {
  struct Case {
    const char* period;
    const char* from;
    const char* to;
    std::size_t days;
  };
  const Case cases[] = {
      {"--from 2026-05-01 --to 2026-05-01", "2026-05-01", "2026-05-01", 1},
      {"--from 2026-05-01 --range 2w", "2026-05-01", "2026-05-14", 14},
      {"--from 2024-02-01", "2024-02-01", "2024-02-29", 29},
      {"--from 2026-05-01 --range 5y", "2026-05-01", "2031-04-30", 1826},
  };
  for (const Case& c : cases) {
    const Json found = answer(std::string("find sun --at Paris --azimuth 180 ") + c.period);
    EXPECT_EQ(found["from"], c.from) << c.period;
    EXPECT_EQ(found["to"], c.to) << c.period;
    EXPECT_EQ(found["results"].size(), c.days) << c.period;
  }
  // Clocks go forward on March 29: in its 23 hours the Sun does not come to where it is
  // an hour before its lowest, which was still the 28th and is the 30th next.
  EXPECT_EQ(answer("find sun --at Paris --azimuth 335 --from 2026-03-29 --to 2026-03-29 "
                   "--all-passages")["results"]
                .size(),
            0U);
}

TEST(Find, SortsByAColumn) {
  const std::string search = "find moon --at Paris --azimuth 150 --from 2026-05-01 --range 6m";
  const Json byDate = answer(search)["results"];
  const auto up = elevationsOf(answer(search + " --sort elevation")["results"]);
  EXPECT_TRUE(std::is_sorted(up.begin(), up.end()));
  const auto down = elevationsOf(answer(search + " --sort elevation --descending")["results"]);
  EXPECT_TRUE(std::is_sorted(down.rbegin(), down.rend()));
  EXPECT_EQ(up.size(), byDate.size());
  EXPECT_EQ(down.size(), byDate.size());
  const Json byPhase = answer(search + " --sort phase")["results"];
  EXPECT_LT(byPhase.front()["phase"], 0.01);
  EXPECT_GT(byPhase.back()["phase"], 0.99);
}

TEST(Find, SaysWhatWasNotFound) {
  const std::pair<const char*, const char*> cases[] = {
      {"find sun --at Paris --azimuth 0 --from 2026-06-01 --range 1w",
       "body_at_azimuth_no_positive_result_sun"},
      {"find moon --at Paris --azimuth 0 --elevation 60 --from 2026-06-01 --range 1w",
       "body_at_azimuth_elevation_no_result_moon"},
      // In January the Sun of Nairobi is south of the zenith all day.
      {"find sun --at Nairobi --azimuth 10 --from 2026-01-05 --range 1w --all-passages",
       "body_at_azimuth_no_result_sun"},
  };
  for (const auto& [search, key] : cases) {
    EXPECT_EQ(answer(search)["message"], key) << search;
    EXPECT_THAT(zenivo(search).output, testing::AnyOf(HasSubstr("does not"), HasSubstr("only")));
  }
}

// The signal is ignored until the search listens for it.
TEST(Find, CtrlCPrintsWhatWasFound) {
  const Outcome outcome = shell(
      "trap '' INT\n"
      "'" ZENIVO_PROGRAM
      "' find moon --at Quito --azimuth 80 --range 5y --all-passages --json & pid=$!\n"
      "while kill -INT $pid 2>/dev/null; do sleep 0.005; done\n"
      "wait $pid");
  EXPECT_EQ(outcome.exitCode, 130);
  EXPECT_EQ(outcome.error, "zenivo: interrupted; the answer is not complete\n");
  const Json found = Json::parse(outcome.output, nullptr, false);
  ASSERT_TRUE(found.is_object()) << outcome.output;
  EXPECT_EQ(found["complete"], false);
  EXPECT_TRUE(found["message"].is_null());
}

TEST(Find, NoProgressAwayFromATerminal) {
  const Outcome outcome =
      zenivo("find moon --at Quito --azimuth 80 --range 5y --all-passages --json");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.error, "");
}

}  // namespace
}  // namespace zenivo::cli
