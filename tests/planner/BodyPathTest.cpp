#include "planner/BodyPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "engine/Angles.h"
#include "foundation/DateFormatter.h"
#include "planner/DaySearch.h"
#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

constexpr double kStep = 1.0 / 72;

class BodyPathTest : public SessionTest {
 protected:
  struct Day {
    LocalDay day;
    MoonEvent event;
    double mjdTomorrowAt0;
    std::optional<BodyPath> path;
  };

  static void useZone(const std::string& name) {
    setCachedCalendarTimeZone(zoneNamed(name));
    setSharedFormattersTimeZone(zoneNamed(name));
  }

  Day moonDay(const PtPosition& place, Date moment) {
    moon.setPosition(place);
    const LocalDay day(dateWithStartDateTime(moment));
    Day result{day, moonEventOfDay(moon, day, nullptr), day.dayAfter(1).mjdAt0, std::nullopt};
    result.path = positionPerHourForBody(moon, day, result.event);
    return result;
  }

  ephemeris::PtMoon moon;
};

/// What holds for every path: see the messages.
void checkPath(const BodyPath& path, const CelestialBodyEvent& event, const LocalDay& day,
               double mjdTomorrowAt0, ephemeris::PtPlanet& body) {
  const bool hasGap = drawEventAtMjd(event.mjdRise()) && drawEventAtMjd(event.mjdSet()) &&
                      event.mjdSet() < event.mjdRise();
  for (std::size_t i = 0; i < path.size(); ++i) {
    const BodyPathItem& item = path[i];
    const bool isEvent = item.isRise || item.isSet;
    if (i > 0) {
      const double gap = item.mjd - path[i - 1].mjd;
      EXPECT_GE(gap, 0) << "in time order";
      if (!item.breakPath) {
        EXPECT_LE(gap, kStep + 1e-6) << "no more than 20 minutes apart";
      }
    }
    EXPECT_GE(item.mjd, day.mjdAt0 - 1e-6) << "from midnight";
    if (!isEvent) {
      EXPECT_LE(item.mjd, std::max(mjdTomorrowAt0 + 1e-6, event.mjdSet())) << "to midnight";
    }
    EXPECT_EQ(item.breakPath, item.isRise && hasGap) << "two arcs are not joined";
    EXPECT_EQ(item.label, timeStringFromDate(dateFromModifiedJulianDay(item.mjd)));
    if (item.isRise) {
      EXPECT_EQ(item.mjd, event.mjdRise());
    }
    if (item.isSet) {
      EXPECT_EQ(item.mjd, event.mjdSet());
    }
    if (isEvent) {
      EXPECT_EQ(item.elevation, 0);
      EXPECT_FALSE(item.isMainPoint);
      EXPECT_EQ(item.azimuth, (item.isRise ? event.riseAzimuth : event.setAzimuth) * kDegree);
      continue;
    }
    body.computePosition(true, item.mjd, day.deltaT);
    EXPECT_EQ(item.elevation, body.horizontal().elevation_ * kDegree);
    EXPECT_EQ(item.azimuth, body.horizontal().azimuth_ * kDegree);
    EXPECT_EQ(item.isMainPoint, item.label.ends_with(":00")) << item.label;
  }
}

// Nine zones with midnights at odd minutes, missing ones, half-hour offsets.
TEST_F(BodyPathTest, PathsOfTheMoon) {
  std::mt19937_64 random(72);
  std::uniform_real_distribution<double> latitude(-80, 80);
  int twoArcs = 0, noPaths = 0, allDay = 0;
  for (const char* zone :
       {"Europe/Paris", "Asia/Kathmandu", "Africa/Cairo", "Pacific/Apia", "America/St_Johns",
        "Australia/Lord_Howe", "Pacific/Chatham", "America/Santiago", "Etc/GMT-14"}) {
    useZone(zone);
    for (int i = 0; i < 40; ++i) {
      const PtPosition place(latitude(random), 12);
      const Date date = dateIn(zone, 1960 + static_cast<int>(random() % 90), 1 + i % 12,
                               1 + static_cast<int>(random() % 30), 12);
      const Day d = moonDay(place, date);
      if (!d.path) {
        EXPECT_EQ(d.event.mjdRise(), kAlwaysBelow);
        ++noPaths;
        continue;
      }
      checkPath(*d.path, d.event, d.day, d.mjdTomorrowAt0, moon);
      twoArcs +=
          d.event.mjdRise() > 0 && d.event.mjdSet() > 0 && d.event.mjdSet() < d.event.mjdRise();
      allDay += d.event.mjdRise() == kAlwaysAbove;
    }
  }
  EXPECT_GT(twoArcs, 50);
  EXPECT_GT(noPaths, 5);
  EXPECT_GT(allDay, 5);
}

// 03:00 came twice in Chatham on 2036-04-06; a rise at the second 02:51 is followed by
// the second.  A set on the full 20 minutes has no sample after it.
TEST_F(BodyPathTest, SamplesStayBetweenRiseAndSet) {
  useZone("Pacific/Chatham");
  const LocalDay day(dateIn("Pacific/Chatham", 2036, 4, 6));
  MoonEvent event;
  for (const double minutes : {231.0, 220.0, 215.5, 200.0, 185.0}) {
    for (const double seconds : {-0.05, 0.0, 0.05}) {
      event.setMjdRise(day.mjdAt0 + minutes / 1440);
      event.setMjdSet(event.mjdRise() + 10 * kStep + seconds / 86400);
      const BodyPath path = positionPerHourForBody(moon, day, event).value();
      checkPath(path, event, day, day.dayAfter(1).mjdAt0, moon);
      EXPECT_GE(path.size(), 11u);
    }
  }
}

// A path covers all the time that the body is up: samples at the ends of the day when
// it is up there, and none missing beside rise and set.
TEST_F(BodyPathTest, PathsReachFromEndToEnd) {
  useZone("Europe/Paris");
  int riseOnly = 0, setOnly = 0;
  for (int day = 1; day <= 120; ++day) {
    const Day d = moonDay(PtPosition(60, 2), dateIn("Europe/Paris", 2026, 8, day, 12));
    ASSERT_TRUE(d.path);
    const bool rises = drawEventAtMjd(d.event.mjdRise()), sets = drawEventAtMjd(d.event.mjdSet());
    const BodyPathItem &first = d.path->front(), &last = d.path->back();
    const bool upAtStart = sets && (!rises || d.event.mjdSet() < d.event.mjdRise());
    const bool upAtEnd = rises && (!sets || d.event.mjdSet() < d.event.mjdRise());
    EXPECT_EQ(first.isRise, !upAtStart);
    EXPECT_EQ(last.isSet, !upAtEnd);
    if (upAtStart) {
      EXPECT_NEAR(first.mjd, d.day.mjdAt0, 1e-6);
    }
    if (upAtEnd) {
      EXPECT_NEAR(last.mjd, d.mjdTomorrowAt0, 1e-6);
    }
    riseOnly += rises && !sets;
    setOnly += sets && !rises;
  }
  EXPECT_GT(riseOnly, 2);
  EXPECT_GT(setOnly, 2);
}

}  // namespace
}  // namespace zenivo::testing
