// Answers against published almanacs.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "answers/sky/Day.h"
#include "answers/sky/MoonYear.h"
#include "answers/sky/NextPhase.h"
#include "answers/sky/Sky.h"
#include "input/MomentParser.h"
#include "support/Scenes.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

Date moment(const std::string& text) {
  return parseMoment(text, TimeZone(), Date());
}

double minutesBetween(double mjd, const std::string& expected) {
  return std::fabs(mjd - modifiedJulianDay(moment(expected))) * kMinutesPerDay;
}

DayReport dayAt(double latitude, double longitude, const std::string& zone, int year, int month,
                int day) {
  return answer(
      DayQuestion{sceneAt(latitude, longitude, zone), dateIn(zone, year, month, day, 12)});
}

// US Naval Observatory, Astronomical Applications Department: Rise, Set and Twilight of
// one day; given to the minute.
TEST(Almanac, RiseAndSetOfTheSun) {
  struct Case {
    DayReport day;
    const char* rise;
    const char* set;
  };
  const Case cases[] = {
      {dayAt(48.8584, 2.2945, "Europe/Paris", 2026, 6, 21), "2026-06-21T05:47+02:00",
       "2026-06-21T21:58+02:00"},
      {dayAt(51.4779, 0, "Europe/London", 2026, 12, 21), "2026-12-21T08:04Z", "2026-12-21T15:53Z"},
      {dayAt(40.7128, -74.006, "America/New_York", 2024, 4, 8), "2024-04-08T06:26-04:00",
       "2024-04-08T19:28-04:00"},
      {dayAt(38.9072, -77.0369, "America/New_York", 2024, 6, 20), "2024-06-20T05:43-04:00",
       "2024-06-20T20:37-04:00"},
      {dayAt(-33.8688, 151.2093, "Australia/Sydney", 2024, 12, 21), "2024-12-21T05:41+11:00",
       "2024-12-21T20:05+11:00"},
  };
  for (const Case& c : cases) {
    EXPECT_LE(minutesBetween(c.day.sun.mjdRise(), c.rise), 1.5) << c.rise;
    EXPECT_LE(minutesBetween(c.day.sun.mjdSet(), c.set), 1.5) << c.set;
  }
}

// In Reykjavík the Sun of midsummer sets after midnight: rise 02:55 on June 21, set
// 00:03 on June 22, 2024 (Icelandic Almanac).  Both sets of a date are its own.
TEST(Almanac, SunsetAfterMidnight) {
  const DayReport day = dayAt(64.1466, -21.9426, "Atlantic/Reykjavik", 2024, 6, 22);
  EXPECT_LE(minutesBetween(day.sun.mjdSet(), "2024-06-22T00:03Z"), 2);
}

// Moon phases of the US Naval Observatory, to the minute.  The program's moments are of
// dynamical time, 69 to 76 s later.
TEST(Almanac, PhasesOfTheMoon) {
  struct Case {
    const char* from;
    const char* zone;
    int wanted;
    bool previous;
    int phase;
    const char* moment;
  };
  const Case cases[] = {
      {"2024-04-01", "UTC", kNewMoon, false, 0, "2024-04-08T18:21Z"},   // total solar eclipse
      {"2024-09-01", "UTC", kFullMoon, false, 2, "2024-09-18T02:34Z"},  // partial lunar eclipse
      {"2026-06-20", "UTC", kNoMoonPhase, false, 1, "2026-06-21T21:55Z"},
      {"2026-08-12", "Pacific/Auckland", kNewMoon, false, 0, "2026-08-12T17:37Z"},
      {"2026-03-10", "UTC", kFullMoon, true, 2, "2026-03-03T11:38Z"},
      {"2026-07-01", "UTC", kLastQuarter, true, 3, "2026-06-08T10:00Z"},
  };
  for (const Case& c : cases) {
    const Scene scene = sceneAt(0, 0, c.zone);
    const NextPhaseReport next = answer(
        NextPhaseQuestion{scene, parseMoment(c.from, scene.zone, Date()), c.wanted, c.previous});
    EXPECT_EQ(next.phase, c.phase) << c.from;
    EXPECT_LE(minutesBetween(next.mjd, c.moment), 2.3) << c.from;
  }
}

// Perigees of 2024 by F. Espenak, Moon at Perigee and Apogee (astropixels.com), and
// the supermoons of that year: the full Moons of September 18 and October 17.
TEST(Almanac, PerigeesAndSupermoons) {
  const auto moon = answer(MoonYearQuestion{sceneAt(51.4779, 0, "UTC"), 2024}).distances;
  const auto near = [](const std::vector<MoonPhaseDistance>& list, const char* when,
                       double distance) {
    for (const MoonPhaseDistance& apsis : list) {
      if (minutesBetween(apsis.mjd, when) < 40) {
        EXPECT_NEAR(apsis.distanceToEarth, distance, 40) << when;
        return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(near(moon.perigees(), "2024-03-10T07:04Z", 356895));
  EXPECT_TRUE(near(moon.perigees(), "2024-10-17T00:51Z", 357175));
  EXPECT_TRUE(near(moon.apogees(), "2024-10-02T19:40Z", 406516));
  ASSERT_EQ(moon.supermoons().size(), 2U);
  EXPECT_LE(minutesBetween(moon.supermoons()[0].mjd, "2024-09-18T02:34Z"), 2.3);
  EXPECT_LE(minutesBetween(moon.supermoons()[1].mjd, "2024-10-17T11:26Z"), 2.3);
}

// At the equinox the Sun stands above the equator: overhead there at noon, and on the
// horizon of the pole, lifted by half a degree of refraction.
TEST(Almanac, EquinoxOf2026) {
  // 2026 March 20, 14:46 UT (US Naval Observatory).
  const SkyReport pole = answer(SkyQuestion{sceneAt(90, 0, "UTC"), moment("2026-03-20T14:46Z")});
  EXPECT_NEAR(pole.sun.position.elevation_, 0.48, 0.03);
  const DayReport day = dayAt(0, 0, "UTC", 2026, 3, 20);
  EXPECT_NEAR(day.sun.riseAzimuth, 90, 0.3);
  EXPECT_NEAR(day.sun.setAzimuth, 270, 0.3);
}

}  // namespace
}  // namespace zenivo
