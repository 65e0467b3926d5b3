// The JSON that callers rely on: its keys and its values.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/Zenivo.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;
using testing::ElementsAre;
using testing::ElementsAreArray;

std::vector<std::string> membersOf(const Json& json) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : json.items()) keys.push_back(key);
  return keys;
}

TEST(JsonKeys, Sky) {
  const Json sky = answer("sky --at 48.8584,2.2945,35 --time 2026-06-21T12:00Z");
  EXPECT_THAT(membersOf(sky),
              ElementsAre("place", "zone", "time", "mjd", "deltaT", "sun", "moon", "milkyWay"));
  EXPECT_THAT(membersOf(sky["place"]), ElementsAre("latitude", "longitude", "altitude"));
  EXPECT_THAT(membersOf(sky["sun"]), ElementsAre("azimuth", "elevation", "distance",
                                                 "angularDiameter", "shadowRatio", "light"));
  EXPECT_THAT(membersOf(sky["moon"]),
              ElementsAre("azimuth", "elevation", "distance", "angularDiameter", "illumination",
                          "phaseAngle", "waxing", "zenithAngle", "phase", "age", "shadowRatio"));
  EXPECT_THAT(membersOf(sky["milkyWay"]), ElementsAre("azimuth", "elevation", "planeMaxAngle",
                                                      "planeMaxAzimuth", "planeAngle"));
  EXPECT_EQ(sky["time"], "2026-06-21T14:00:00+02:00");
  EXPECT_EQ(sky["mjd"], 61212.5);
  EXPECT_EQ(sky["place"].dump(), R"({"latitude":48.8584,"longitude":2.2945,"altitude":35.0})");
}

TEST(JsonKeys, Day) {
  const Json day = answer("day --at 48.8584,2.2945 --date 2026-07-15");
  std::vector<std::string> expected{
      "date", "zone", "place", "place.latitude", "place.longitude", "place.altitude"};
  const auto add = [&](const std::string& name, std::initializer_list<const char*> members) {
    expected.push_back(name);
    for (const char* member : members) expected.push_back(name + "." + member);
  };
  const auto addMoments = [&](const std::string& name, std::initializer_list<const char*> members) {
    expected.push_back(name);
    for (const char* member : members) add(name + "." + member, {"mjd", "time"});
  };
  addMoments("sun", {"rise", "transit", "set"});
  expected.insert(expected.end(), {"sun.riseAzimuth", "sun.setAzimuth"});
  addMoments("sun.civilTwilight", {"start", "end"});
  addMoments("sun.nauticalTwilight", {"start", "end"});
  addMoments("sun.astronomicalTwilight", {"start", "end", "secondEnd"});
  addMoments("sun.blueHour", {"start", "end"});
  addMoments("sun.goldenHour", {"start", "end"});
  addMoments("moon", {"rise", "transit", "set"});
  expected.insert(expected.end(), {"moon.riseAzimuth", "moon.setAzimuth", "moon.phase"});
  add("moon.phaseTime", {"mjd", "time"});
  expected.insert(expected.end(), {"moon.illumination", "moon.supermoon"});
  addMoments("milkyWay", {"rise", "set"});
  expected.insert(expected.end(), {"milkyWay.riseAzimuth", "milkyWay.setAzimuth"});
  add("milkyWay.visibleFrom", {"mjd", "time"});
  add("milkyWay.visibleTo", {"mjd", "time"});
  for (const char* angle :
       {"visibleFromAzimuth", "visibleFromElevation", "visibleToAzimuth", "visibleToElevation"}) {
    expected.push_back(std::string("milkyWay.") + angle);
  }
  expected.push_back("events");
  add("events.[]", {"type", "key", "text"});
  add("events.[].time", {"mjd", "time"});
  expected.push_back("intervals");
  for (const char* light : {"civil", "nautical", "astronomical", "blueHour", "goldenHour"}) {
    expected.push_back(std::string("intervals.") + light);
    addMoments(std::string("intervals.") + light + ".[]", {"start", "end"});
  }
  expected.push_back("moonlessHours");
  EXPECT_THAT(keysOf(day), ElementsAreArray(expected));
}

TEST(JsonKeys, TheOthers) {
  const std::string at = " --at Paris ";
  const Json month = answer("month" + at + "--date 2026-06");
  EXPECT_THAT(membersOf(month), ElementsAre("month", "zone", "place", "phases", "days"));
  EXPECT_THAT(membersOf(month["phases"][0]), ElementsAre("phase", "time"));
  EXPECT_THAT(membersOf(month["days"][0]),
              ElementsAre("date", "rise", "set", "illumination", "phase", "supermoon"));
  EXPECT_EQ(month["days"].size(), 30U);
  const Json moon = answer("moon" + at + "--year 2026");
  EXPECT_THAT(membersOf(moon),
              ElementsAre("year", "zone", "place", "apogees", "perigees", "supermoons"));
  for (const char* list : {"apogees", "perigees", "supermoons"}) {
    EXPECT_THAT(membersOf(moon[list][0]), ElementsAre("time", "distance")) << list;
  }
  const Json path = answer("path sun" + at + "--date 2026-06-21");
  EXPECT_THAT(membersOf(path), ElementsAre("date", "zone", "place", "body", "samples"));
  EXPECT_THAT(membersOf(path["samples"][0]), ElementsAre("time", "azimuth", "elevation", "event"));
  EXPECT_EQ(path["samples"].front()["event"], "rise");
  EXPECT_EQ(path["samples"].back()["event"], "set");
  EXPECT_TRUE(path["samples"][1]["event"].is_null());
  EXPECT_THAT(membersOf(answer("next-phase" + at)), ElementsAre("phase", "time", "zone", "place"));
  EXPECT_THAT(membersOf(answer("next-dark-night" + at)),
              ElementsAre("date", "dusk", "dawn", "moonless", "moonlessHours", "zone", "place"));
  EXPECT_THAT(
      membersOf(answer("next-milky-way" + at)),
      ElementsAre("date", "visibleFrom", "visibleTo", "visibleFromAzimuth", "visibleFromElevation",
                  "visibleToAzimuth", "visibleToElevation", "zone", "place"));
}

}  // namespace
}  // namespace zenivo::cli
