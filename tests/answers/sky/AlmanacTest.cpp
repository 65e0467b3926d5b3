// What the program prints, against published almanacs.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

#include "cli/Zenivo.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

using Json = nlohmann::ordered_json;

double minutesBetween(const Json& moment, const std::string& expected) {
  const auto seconds = [](const std::string& text) {
    return parseMoment(text, TimeZone(), Date()).timeIntervalSince1970();
  };
  if (!moment["time"].is_string()) return 1e9;
  return std::fabs(seconds(moment["time"]) - seconds(expected)) / 60;
}

// US Naval Observatory, Astronomical Applications Department: Rise, Set and Twilight of
// one day; given to the minute.
TEST(Almanac, RiseAndSetOfTheSun) {
  struct Case {
    const char* arguments;
    const char* rise;
    const char* set;
  };
  const Case cases[] = {
      {"--at 48.8584,2.2945 --zone Europe/Paris --date 2026-06-21", "2026-06-21T05:47+02:00",
       "2026-06-21T21:58+02:00"},
      {"--at 51.4779,0 --zone Europe/London --date 2026-12-21", "2026-12-21T08:04Z",
       "2026-12-21T15:53Z"},
      {"--at 40.7128,-74.006 --zone America/New_York --date 2024-04-08", "2024-04-08T06:26-04:00",
       "2024-04-08T19:28-04:00"},
      {"--at 38.9072,-77.0369 --zone America/New_York --date 2024-06-20", "2024-06-20T05:43-04:00",
       "2024-06-20T20:37-04:00"},
      {"--at -33.8688,151.2093 --zone Australia/Sydney --date 2024-12-21", "2024-12-21T05:41+11:00",
       "2024-12-21T20:05+11:00"},
  };
  for (const Case& c : cases) {
    const Json sun = answer(std::string("day ") + c.arguments)["sun"];
    EXPECT_LE(minutesBetween(sun["rise"], c.rise), 1.5) << c.arguments << sun["rise"];
    EXPECT_LE(minutesBetween(sun["set"], c.set), 1.5) << c.arguments << sun["set"];
  }
}

// In Reykjavík the Sun of midsummer sets after midnight: rise 02:55 on June 21, set
// 00:03 on June 22, 2024 (Icelandic Almanac).  Both sets of a date are its own.
TEST(Almanac, SunsetAfterMidnight) {
  const Json sun = answer("day --at 64.1466,-21.9426 --zone Atlantic/Reykjavik --date 2024-06-22");
  EXPECT_LE(minutesBetween(sun["sun"]["set"], "2024-06-22T00:03Z"), 2) << sun["sun"]["set"];
}

// Moon phases of the US Naval Observatory, to the minute.  The program's moments are of
// dynamical time, 69 to 76 s later.
TEST(Almanac, PhasesOfTheMoon) {
  struct Case {
    const char* arguments;
    int phase;
    const char* moment;
  };
  const Case cases[] = {
      {"--date 2024-04-01 --phase new", 0, "2024-04-08T18:21Z"},   // total solar eclipse
      {"--date 2024-09-01 --phase full", 2, "2024-09-18T02:34Z"},  // partial lunar eclipse
      {"--date 2026-06-20", 1, "2026-06-21T21:55Z"},
      {"--date 2026-08-12 --zone Pacific/Auckland --phase new", 0, "2026-08-12T17:37Z"},
      {"--date 2026-03-10 --phase full --previous", 2, "2026-03-03T11:38Z"},
      {"--date 2026-07-01 --phase last --previous", 3, "2026-06-08T10:00Z"},
  };
  for (const Case& c : cases) {
    const Json next = answer(std::string("next-phase --at 0,0 ") + c.arguments);
    EXPECT_EQ(next["phase"], c.phase) << c.arguments;
    EXPECT_LE(minutesBetween(next["time"], c.moment), 2.3) << c.arguments << next["time"];
  }
}

// Perigees of 2024 by F. Espenak, Moon at Perigee and Apogee (astropixels.com), and
// the supermoons of that year: the full Moons of September 18 and October 17.
TEST(Almanac, PerigeesAndSupermoons) {
  const Json moon = answer("moon --at 51.4779,0 --zone UTC --year 2024");
  const auto near = [&](const char* list, const char* moment, double distance) {
    for (const Json& apsis : moon[list]) {
      if (minutesBetween(apsis["time"], moment) < 40) {
        EXPECT_NEAR(apsis["distance"].get<double>(), distance, 40) << moment;
        return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(near("perigees", "2024-03-10T07:04Z", 356895));
  EXPECT_TRUE(near("perigees", "2024-10-17T00:51Z", 357175));
  EXPECT_TRUE(near("apogees", "2024-10-02T19:40Z", 406516));
  ASSERT_EQ(moon["supermoons"].size(), 2U);
  EXPECT_LE(minutesBetween(moon["supermoons"][0]["time"], "2024-09-18T02:34Z"), 2.3);
  EXPECT_LE(minutesBetween(moon["supermoons"][1]["time"], "2024-10-17T11:26Z"), 2.3);
}

// At the equinox the Sun stands above the equator: overhead there at noon, and on the
// horizon of the pole, lifted by half a degree of refraction.
TEST(Almanac, EquinoxOf2026) {
  // 2026 March 20, 14:46 UT (US Naval Observatory).
  const Json pole = answer("sky --at 90,0 --zone UTC --time 2026-03-20T14:46Z");
  EXPECT_NEAR(pole["sun"]["elevation"].get<double>(), 0.48, 0.03);
  const Json day = answer("day --at 0,0 --zone UTC --date 2026-03-20");
  EXPECT_NEAR(day["sun"]["riseAzimuth"].get<double>(), 90, 0.3);
  EXPECT_NEAR(day["sun"]["setAzimuth"].get<double>(), 270, 0.3);
}

}  // namespace
}  // namespace zenivo::cli
