// That answers hold wherever and whenever, and agree with one another.

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <string>

#include "answers/sky/Day.h"
#include "answers/sky/Month.h"
#include "answers/sky/NextDarkNight.h"
#include "answers/sky/NextMilkyWay.h"
#include "answers/sky/NextPhase.h"
#include "answers/sky/Path.h"
#include "answers/sky/Sky.h"
#include "support/Scenes.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

bool isSentinel(double mjd) {
  return !drawEventAtMjd(mjd);
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
void expectDay(const Scene& scene, Date moment) {
  const Json day = json(answer(DayQuestion{scene, moment}));
  const std::string where = day["place"].dump() + day["date"].dump();
  expectSound(day, where);
  std::set<double> moments;  // of the records
  double last = -1e9;
  for (const Json& event : day["events"]) {
    const double mjd = event["time"]["mjd"];
    EXPECT_FALSE(isSentinel(mjd)) << where << event;
    EXPECT_GE(mjd, last) << where << event;
    EXPECT_NE(event["text"], event["key"]) << where;
    last = mjd;
    moments.insert(mjd);
  }
  for (const char* body : {"sun", "moon"}) {
    for (const char* name : {"rise", "transit", "set"}) {
      const double mjd = day[body][name]["mjd"];
      EXPECT_EQ(moments.contains(mjd), !isSentinel(mjd)) << where << body << name;
    }
    EXPECT_EQ(day[body]["riseAzimuth"].is_null(), isSentinel(day[body]["rise"]["mjd"]));
    EXPECT_EQ(day[body]["setAzimuth"].is_null(), isSentinel(day[body]["set"]["mjd"]));
  }
  if (!moments.empty()) {
    EXPECT_LE(*moments.rbegin() - *moments.begin(), 1.01) << where;
  }
  for (const auto& [light, spans] : day["intervals"].items()) {
    for (const Json& span : spans) {
      const double start = span["start"]["mjd"], end = span["end"]["mjd"];
      EXPECT_TRUE(start < end || isSentinel(start) || isSentinel(end)) << where << light;
    }
  }
  EXPECT_GE(day["moonlessHours"], 0) << where;
  EXPECT_LE(day["moonlessHours"], 24) << where;
  EXPECT_GE(day["moon"]["illumination"], 0) << where;
  EXPECT_LE(day["moon"]["illumination"], 1) << where;
}

TEST(Days, AtTheEdgesOfTheEarthAndTheClock) {
  const Scene scenes[] = {sceneAt(90, 0, "Etc/GMT"),
                          sceneAt(-90, 0, "Etc/GMT"),
                          sceneAt(0, 180, "Etc/GMT-12"),
                          sceneAt(0, -180, "Etc/GMT+12"),
                          sceneAt(-16.5, 180, "Pacific/Fiji"),
                          sceneAt(69.65, 18.96, "Europe/Oslo"),
                          sceneAt(78.2, 15.6, "Arctic/Longyearbyen"),
                          sceneAt(-77.85, 166.67, "Antarctica/McMurdo"),
                          sceneAt(51.48, 0, "Europe/London")};
  constexpr int kDates[][3] = {{1800, 1, 1},   {1900, 3, 1},  {2026, 3, 20}, {2026, 6, 21},
                               {2026, 12, 21}, {2100, 2, 28}, {2200, 12, 31}};
  for (const Scene& scene : scenes) {
    for (const auto& [year, month, day] : kDates) {
      expectDay(scene, dateIn(scene.zone.name(), year, month, day, 12));
    }
  }
  // Days of 23 and 25 hours, one without a midnight, and zones far from their place.
  const Scene paris = sceneAt(48.8584, 2.2945, "Europe/Paris");
  expectDay(paris, dateIn("Europe/Paris", 2026, 3, 29, 12));
  expectDay(paris, dateIn("Europe/Paris", 2026, 10, 25, 12));
  expectDay(sceneAt(23.13, -82.38, "America/Havana"), dateIn("America/Havana", 2026, 3, 8, 12));
  expectDay(sceneAt(-13.83, -171.77, "Pacific/Apia"), dateIn("Pacific/Apia", 2011, 12, 29, 12));
  expectDay(sceneAt(21, -157, "Pacific/Kiritimati"), dateIn("Pacific/Kiritimati", 2026, 6, 21));
  expectDay(sceneAt(48.8584, 2.2945, "Asia/Tokyo"), dateIn("Asia/Tokyo", 2026, 6, 21));
}

TEST(Days, AnywhereAnyTime) {
  std::mt19937 random(18002200);  // fixed, so that a failure repeats
  std::uniform_real_distribution<double> z(-1, 1), longitude(-180, 180);
  std::uniform_int_distribution<int> year(1800, 2200), day(1, 365), offset(-12, 12);
  for (int i = 0; i < 200; ++i) {
    const double latitude = std::asin(z(random)) * 180 / 3.14159265358979;
    const int hours = offset(random);
    const std::string zone =
        hours == 0 ? "Etc/GMT"
                   : (hours < 0 ? "Etc/GMT-" : "Etc/GMT+") + std::to_string(std::abs(hours));
    expectDay(sceneAt(latitude, longitude(random), zone),
              dateIn(zone, year(random), 1, day(random), 12));
  }
}

TEST(Days, PolarDayAndNight) {
  // Tromsø has the midnight Sun from May 18 to July 26 and no Sun from November 27 to
  // January 15 (Norwegian Meteorological Institute).
  const Scene tromso = sceneAt(69.65, 18.96, "Europe/Oslo");
  const DayReport summer = answer(DayQuestion{tromso, dateIn("Europe/Oslo", 2026, 6, 21, 12)});
  EXPECT_EQ(summer.sun.mjdRise(), kAlwaysAbove);
  EXPECT_EQ(summer.sun.astronomicalTwilight.mjdEnd(), kAlwaysAbove);
  EXPECT_EQ(summer.moonlessHours, 0);
  const DayReport winter = answer(DayQuestion{tromso, dateIn("Europe/Oslo", 2026, 12, 21, 12)});
  EXPECT_EQ(winter.sun.mjdSet(), kAlwaysBelow);
  EXPECT_FALSE(isSentinel(winter.sun.civilTwilight.mjdStart()));
}

TEST(Paths, RunOnInTimeAboveTheHorizon) {
  const Scene scenes[] = {sceneAt(48.8584, 2.2945, "Europe/Paris"),
                          sceneAt(69.65, 18.96, "Europe/Oslo"), sceneAt(-90, 0, "UTC"),
                          sceneAt(0, 180, "Etc/GMT-12"), sceneAt(60, 25, "Europe/Helsinki")};
  constexpr int kDates[][2] = {{3, 29}, {6, 21}, {10, 25}, {12, 21}};
  for (const PathBody body : {PathBody::sun, PathBody::moon}) {
    for (const Scene& scene : scenes) {
      for (const auto& [month, day] : kDates) {
        const Date noon = dateIn(scene.zone.name(), 2026, month, day, 12);
        double last = 0;
        for (const BodyPathItem& sample : answer(PathQuestion{scene, noon, body}).samples) {
          EXPECT_GE(sample.mjd, last);
          EXPECT_LT(sample.mjd - last, last == 0 ? 1e9 : 1.0);
          EXPECT_GT(sample.elevation, -0.027);
          last = sample.mjd;
        }
      }
    }
  }
}

// The light of a moment changes when the day says that it does, refraction or not.
TEST(Skies, NameTheLightAsTheDayDoes) {
  const Scene scene = sceneAt(48.8584, 2.2945, "Europe/Paris");
  const auto lightAt = [&](double mjd) {
    return json(answer(SkyQuestion{scene, dateOfMjd(mjd)}))["sun"]["light"].get<std::string>();
  };
  // The search for a crossing is right to half a minute; refraction would shift it by more.
  constexpr double kSeconds = 40 / kSecondsPerDay;
  for (const int month : {1, 3, 6, 10}) {
    const SunEvent sun = answer(DayQuestion{scene, dateIn("Europe/Paris", 2026, month, 7, 12)}).sun;
    const struct {
      double morning, evening;
      const char* darker;
      const char* brighter;
    } limits[] = {
        {sun.goldenHour.mjdEnd(), sun.goldenHour.mjdStart(), "twilight_golden_hour",
         "light_daytime"},
        {sun.blueHour.mjdEnd(), sun.blueHour.mjdStart(), "twilight_blue_hour",
         "twilight_golden_hour"},
        {sun.civilTwilight.mjdStart(), sun.civilTwilight.mjdEnd(), "light_nautical",
         "twilight_blue_hour"},
    };
    for (const auto& [morning, evening, darker, brighter] : limits) {
      EXPECT_EQ(lightAt(morning - kSeconds), darker) << month;
      EXPECT_EQ(lightAt(morning + kSeconds), brighter) << month;
      EXPECT_EQ(lightAt(evening - kSeconds), brighter) << month;
      EXPECT_EQ(lightAt(evening + kSeconds), darker) << month;
    }
  }
}

// The last quarter of 2025-05-20 comes at 11:59:54 UT by the program's reckoning: in a zone
// twelve hours east of Greenwich that is six seconds before the day's end.
TEST(Months, APhaseInTheLastHalfMinuteBelongsToItsDay) {
  const MonthReport month = answer(MonthQuestion{sceneAt(0, 180, "Etc/GMT-12"), 2025, 5});
  for (const MonthReport::Phase& phase : month.phases) {
    const Date moment = dateOfMjd(phase.mjd);
    const int day = dayValue(moment, Calendar(zoneNamed("Etc/GMT-12")));
    EXPECT_EQ(month.days.at(static_cast<std::size_t>(day) - 1).moon.mjdPhase, phase.mjd) << day;
  }
  // With its kind given, one of the moment's own day is passed over.
  const Date noon = dateIn("Etc/GMT-12", 2025, 5, 20, 12);
  const Scene scene = sceneAt(0, 180, "Etc/GMT-12");
  const NextPhaseReport next = answer(NextPhaseQuestion{scene, noon, kLastQuarter});
  EXPECT_EQ(monthValue(dateOfMjd(next.mjd), Calendar(scene.zone)), 6);
}

// Whatever zone the process has taken on, and it keeps that.
TEST(Answers, DependOnNoZoneButTheirOwn) {
  const Scene scene = sceneAt(-33.86, 151.21, "Australia/Sydney");
  const Date moment = dateIn("Australia/Sydney", 2026, 1, 3, 3);
  const auto all = [&] {
    const GoOn goOn = [](double) { return true; };
    return Json{json(answer(SkyQuestion{scene, moment})),
                json(answer(DayQuestion{scene, moment})),
                json(answer(PathQuestion{scene, moment, PathBody::moon})),
                json(answer(MonthQuestion{scene, 2026, 1})),
                json(answer(NextPhaseQuestion{scene, moment, kFullMoon})),
                json(answer(NextDarkNightQuestion{scene, moment, {}}, goOn)),
                json(answer(NextMilkyWayQuestion{scene, moment}))}
        .dump();
  };
  const TimeZone before = cachedCalendar().timeZone();
  const std::string expected = all();
  for (const char* zone : {"Asia/Tokyo", "America/Adak"}) {
    setCachedCalendarTimeZone(zoneNamed(zone));
    EXPECT_EQ(all(), expected) << zone;
    EXPECT_EQ(cachedCalendar().timeZone().name(), zone);
  }
  setCachedCalendarTimeZone(before);
}

}  // namespace
}  // namespace zenivo
