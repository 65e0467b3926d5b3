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
    std::optional<BodyPath> path;
  };

  void useZone(const std::string& name) { calendar.setTimeZone(zoneNamed(name)); }

  Day moonDay(const PtPosition& place, Date moment) {
    moon.setPosition(place);
    const LocalDay day(dateWithStartDateTime(moment, calendar));
    const MoonEvent event = moonEventOfDay(moon, day, nullptr, calendar);
    return {day, event, positionPerHourForBody(moon, day, event, calendar)};
  }

  Calendar calendar{TimeZone()};
  ephemeris::PtMoon moon;
};

bool setsBeforeRise(const CelestialBodyEvent& event) {
  return drawEventAtMjd(event.mjdRise()) && drawEventAtMjd(event.mjdSet()) &&
         event.mjdSet() < event.mjdRise();
}

/// What holds for every path: it covers all the time that the body is up, and see the
/// messages.
void checkPath(const BodyPath& path, const CelestialBodyEvent& event, const LocalDay& day,
               const Calendar& calendar, ephemeris::PtPlanet& body) {
  const DateFormatter clock("%H:%M", calendar.timeZone());
  for (std::size_t i = 0; i < path.size(); ++i) {
    const BodyPathItem& item = path[i];
    const bool isEvent = item.isRise || item.isSet;
    const double gap = i > 0 ? item.mjd - path[i - 1].mjd : 0;
    EXPECT_GE(gap, 0) << "in time order";
    EXPECT_TRUE(item.breakPath || gap <= kStep + 1e-6) << "no more than 20 minutes apart";
    EXPECT_GE(item.mjd, day.mjdAt0 - 1e-6) << "from midnight";
    const double end = std::max(day.dayAfter(1, calendar).mjdAt0 + 1e-6, event.mjdSet());
    EXPECT_TRUE(isEvent || item.mjd <= end) << "to midnight";
    EXPECT_EQ(item.breakPath, item.isRise && setsBeforeRise(event)) << "two arcs are not joined";
    EXPECT_EQ(item.label, clock.stringFromDate(dateFromModifiedJulianDay(item.mjd)));
    if (isEvent) {
      EXPECT_EQ(item.mjd, item.isRise ? event.mjdRise() : event.mjdSet());
      EXPECT_EQ(item.azimuth, (item.isRise ? event.riseAzimuth : event.setAzimuth) * kDegree);
      EXPECT_EQ(item.elevation, 0);
      EXPECT_FALSE(item.isMainPoint);
      continue;
    }
    body.computePosition(true, item.mjd, day.deltaT);
    EXPECT_EQ(item.elevation, body.horizontal().elevation_ * kDegree);
    EXPECT_EQ(item.azimuth, body.horizontal().azimuth_ * kDegree);
    EXPECT_EQ(item.isMainPoint, item.label.ends_with(":00")) << item.label;
  }
  const BodyPathItem &first = path.front(), &last = path.back();
  const bool hasGap = setsBeforeRise(event);
  EXPECT_EQ(first.isRise, drawEventAtMjd(event.mjdRise()) && !hasGap);
  EXPECT_EQ(last.isSet, drawEventAtMjd(event.mjdSet()) && !hasGap);
  EXPECT_TRUE(first.isRise || std::abs(first.mjd - day.mjdAt0) < 1e-6) << "up at midnight";
  const double tomorrow = day.dayAfter(1, calendar).mjdAt0;
  const bool isOddDay = std::abs(tomorrow - day.mjdAt0 - 1) > 1e-6;  // not of 24 hours
  EXPECT_TRUE(last.isSet || isOddDay || std::abs(last.mjd - tomorrow) < 1e-6) << "up to the end";
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
      checkPath(*d.path, d.event, d.day, calendar, moon);
      twoArcs += setsBeforeRise(d.event);
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
      const BodyPath path = positionPerHourForBody(moon, day, event, calendar).value();
      checkPath(path, event, day, calendar, moon);
      EXPECT_GE(path.size(), 11u);
    }
  }
}

}  // namespace
}  // namespace zenivo::testing
