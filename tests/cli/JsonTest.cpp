// The JSON that callers rely on: its keys, its values, and that it holds wherever and whenever.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>

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
              ElementsAre("place", "time", "mjd", "deltaT", "sun", "moon", "milkyWay"));
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

// --- Days everywhere ---

bool isSentinel(double mjd) {
  return mjd == -2 || mjd == -3 || mjd == -4;
}

/// Every moment in it is real and has a time, or is a sentinel without one; every
/// number is one.
void expectSound(const Json& json, const std::string& where) {
  if (json.is_object() && json.contains("mjd") && json.size() == 2) {
    ASSERT_TRUE(json["mjd"].is_number()) << where;
    EXPECT_EQ(json["time"].is_null(), isSentinel(json["mjd"])) << where << json;
    if (json["time"].is_null()) return;
    EXPECT_GT(json["mjd"].get<double>(), -100000) << where;
  } else if (json.is_structured()) {
    for (const auto& [key, value] : json.items()) expectSound(value, where + "/" + key);
  }
}

/// The lists of a day are in order and agree with its records.
void expectDay(const std::string& arguments) {
  const Json day = answer("day " + arguments);
  expectSound(day, arguments);
  std::set<double> moments;  // of the records
  double last = -1e9;
  for (const Json& event : day["events"]) {
    const double mjd = event["time"]["mjd"];
    EXPECT_FALSE(isSentinel(mjd)) << arguments << event;
    EXPECT_GE(mjd, last) << arguments << event;
    EXPECT_NE(event["text"], event["key"]) << arguments;
    last = mjd;
    moments.insert(mjd);
  }
  for (const char* body : {"sun", "moon"}) {
    for (const char* name : {"rise", "transit", "set"}) {
      const double mjd = day[body][name]["mjd"];
      EXPECT_EQ(moments.contains(mjd), !isSentinel(mjd)) << arguments << body << name;
    }
    EXPECT_EQ(day[body]["riseAzimuth"].is_null(), isSentinel(day[body]["rise"]["mjd"]));
    EXPECT_EQ(day[body]["setAzimuth"].is_null(), isSentinel(day[body]["set"]["mjd"]));
  }
  if (!moments.empty()) {
    EXPECT_LE(*moments.rbegin() - *moments.begin(), 1.01) << arguments;
  }
  for (const auto& [light, spans] : day["intervals"].items()) {
    for (const Json& span : spans) {
      const double start = span["start"]["mjd"], end = span["end"]["mjd"];
      EXPECT_TRUE(start < end || isSentinel(start) || isSentinel(end)) << arguments << light;
    }
  }
  EXPECT_GE(day["moonlessHours"], 0) << arguments;
  EXPECT_LE(day["moonlessHours"], 24) << arguments;
  EXPECT_GE(day["moon"]["illumination"], 0) << arguments;
  EXPECT_LE(day["moon"]["illumination"], 1) << arguments;
}

TEST(Days, AtTheEdgesOfTheEarthAndTheClock) {
  const char* places[] = {"90,0",        "-90,0",     "0,180",         "0,-180", "-16.5,180",
                          "69.65,18.96", "78.2,15.6", "-77.85,166.67", "51.48,0"};
  const char* dates[] = {"1800-01-01", "1900-03-01", "2026-03-20", "2026-06-21",
                         "2026-12-21", "2100-02-28", "2200-12-31"};
  for (const char* place : places) {
    for (const char* date : dates) expectDay(std::string("--at ") + place + " --date " + date);
  }
  // Days of 23 and 25 hours, one without a midnight, and zones far from their place.
  expectDay("--at Paris --date 2026-03-29");
  expectDay("--at Paris --date 2026-10-25");
  expectDay("--at Havana --date 2026-03-08");
  expectDay("--at Apia --date 2011-12-29");
  expectDay("--at 21,-157 --zone Pacific/Kiritimati --date 2026-06-21");
  expectDay("--at Paris --zone Asia/Tokyo --time 2026-06-21T00:00");
}

TEST(Days, AnywhereAnyTime) {
  std::mt19937 random(18002200);  // fixed, so that a failure repeats
  std::uniform_real_distribution<double> z(-1, 1), longitude(-180, 180);
  std::uniform_int_distribution<int> year(1800, 2200), month(1, 12), day(1, 28);
  for (int i = 0; i < 60; ++i) {
    const double latitude = std::asin(z(random)) * 180 / 3.14159265358979;
    char arguments[100];
    std::snprintf(arguments, sizeof arguments, "--at %.4f,%.4f --date %04d-%02d-%02d", latitude,
                  longitude(random), year(random), month(random), day(random));
    expectDay(arguments);
  }
}

TEST(Paths, RunOnInTimeAboveTheHorizon) {
  for (const char* body : {"sun", "moon"}) {
    for (const char* at : {"Paris", "69.65,18.96", "-90,0", "0,180", "60,25"}) {
      for (const char* date : {"2026-03-29", "2026-06-21", "2026-10-25", "2026-12-21"}) {
        const std::string arguments =
            std::string("path ") + body + " --at " + at + " --date " + date;
        const Json path = answer(arguments);
        double last = 0;
        for (const Json& sample : path["samples"]) {
          const double mjd = sample["time"]["mjd"];
          EXPECT_GE(mjd, last) << arguments;
          EXPECT_LT(mjd - last, last == 0 ? 1e9 : 1.0) << arguments;
          EXPECT_GT(sample["elevation"].get<double>(), -1.5) << arguments << sample;
          EXPECT_LT(sample["azimuth"].get<double>(), 360.0) << arguments << sample;
          last = mjd;
        }
      }
    }
  }
}

TEST(Days, PolarDayAndNight) {
  // Tromsø has the midnight Sun from May 18 to July 26 and no Sun from November 27 to
  // January 15 (Norwegian Meteorological Institute).
  const Json summer = answer("day --at 69.65,18.96 --date 2026-06-21");
  EXPECT_EQ(summer["sun"]["rise"]["mjd"], -3);
  EXPECT_EQ(summer["sun"]["astronomicalTwilight"]["end"]["mjd"], -3);
  EXPECT_EQ(summer["moonlessHours"], 0);
  const Json winter = answer("day --at 69.65,18.96 --date 2026-12-21");
  EXPECT_EQ(winter["sun"]["set"]["mjd"], -4);
  EXPECT_FALSE(isSentinel(winter["sun"]["civilTwilight"]["start"]["mjd"]));
  EXPECT_TRUE(winter["intervals"]["goldenHour"].empty() ||
              !winter["intervals"]["goldenHour"][0]["start"]["time"].is_null());
}

}  // namespace
}  // namespace zenivo::cli
