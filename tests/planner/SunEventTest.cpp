#include "planner/SunEvent.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <tuple>

#include "engine/Angles.h"
#include "planner/DaySearch.h"
#include "planner/PlainDay.h"
#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

using ::testing::ElementsAre;

class SunEventTest : public SessionTest {};

TEST_F(SunEventTest, IntervalsOfAPlainDay) {
  const SunEvent day = plainDay();
  const std::tuple<LightType, const char*, const char*> expected[] = {
      {LightType::civil, "05:20 - 06:00", "18:00 - 18:40"},
      {LightType::nautical, "04:40 - 05:20", "18:40 - 19:20"},
      {LightType::astronomical, "04:00 - 04:40", "19:20 - 20:00"},
      {LightType::blueHour, "05:20 - 05:30", "18:30 - 18:40"},
      {LightType::goldenHour, "05:30 - 06:30", "17:30 - 18:30"}};
  for (const auto& [light, first, second] : expected) {
    EXPECT_EQ(day.twilightIntervalForLightType(light, TimeZone()).firstInterval, first);
    EXPECT_EQ(day.twilightIntervalForLightType(light, TimeZone()).secondInterval, second);
  }
  EXPECT_EQ(day.civilTwilightIntervals(TimeZone()).mjdFirstInterval, at(5, 20));
  EXPECT_EQ(day.civilTwilightIntervals(TimeZone()).mjdSecondInterval, at(18));
}

TEST_F(SunEventTest, IntervalsOfOddDays) {
  constexpr double none = kNotThisDay, above = kAlwaysAbove, below = kAlwaysBelow;
  struct Case {
    TwilightEvent civil;
    double rise, set;
    const char *first, *second;
    double mjdFirst, mjdSecond;
  };
  constexpr const char* kSummer = "... - 00:30 | 02:00 - 03:00 | 23:00 - ...";
  const Case kCases[] = {
      {{at(5), none}, at(6), none, "05:00 - 06:00", "", at(5), below},
      {{at(5), none}, at(6), at(23), "05:00 - 06:00", "23:00 - ...", at(5), at(23)},
      // twilight from the night before, and with it that of a short summer night
      {{none, at(0, 30)}, none, none, "... - 00:30", "", at(0, 30), below},
      {{at(2), at(0, 30)}, at(3), at(23), kSummer, "", at(0, 30), below},
      // twilight all through the night, at noon only, and all day long
      {{above, above}, at(2), at(22), "... - 02:00", "22:00 - ...", at(2), at(22)},
      {{at(10), at(14)}, below, below, "10:00 - 14:00", "", at(10), below},
      {{above, above}, below, below, "... - ...", "", below, below},
      // midnight Sun and deep polar night
      {{above, above}, above, above, "", "", below, below},
      {{below, below}, below, below, "", "", below, below},
  };
  for (const Case& c : kCases) {
    SunEvent day;
    day.civilTwilight = c.civil;
    day.setMjdRise(c.rise);
    day.setMjdSet(c.set);
    const TwilightIntervals intervals =
        day.twilightIntervalForLightType(LightType::civil, TimeZone());
    EXPECT_EQ(intervals.firstInterval, c.first);
    EXPECT_EQ(intervals.secondInterval, c.second) << c.first;
    EXPECT_EQ(intervals.mjdFirstInterval, c.mjdFirst) << c.first;
    EXPECT_EQ(intervals.mjdSecondInterval, c.mjdSecond) << c.first;
  }
}

TEST_F(SunEventTest, ASecondDuskClosesTheEvening) {
  SunEvent day = plainDay();
  day.astronomicalTwilight = TwilightEvent(at(2), at(0, 20));
  EXPECT_EQ(day.astronomicalTwilightIntervals(TimeZone()).firstInterval,
            "... - 00:20 | 02:00 - 04:40 | 19:20 - ...");
  day.astronomicalTwilight2 = TwilightEvent(kAlwaysBelow, at(23, 55));
  EXPECT_EQ(day.astronomicalTwilightIntervals(TimeZone()).firstInterval,
            "... - 00:20 | 02:00 - 04:40 | 19:20 - 23:55");
}

TEST_F(SunEventTest, TheSpanOfAMoment) {
  const SunEvent day = plainDay();
  const double tomorrow = kMidnight + 1;
  using Neighbours = std::vector<LightTypeEvent>;
  const auto span = [&](const SunEvent& today, double mjd, const Neighbours& before,
                        const Neighbours& after) {
    return today.currentEventForLightType(LightType::civil, mjd, before, after, kMidnight,
                                          tomorrow);
  };
  EXPECT_EQ(span(day, at(5, 40), {}, {}), TwilightEvent(at(5, 20), at(6)));

  // A summer night: the evening's twilight reaches over midnight.
  SunEvent summer;
  summer.civilTwilight = TwilightEvent(at(2), at(0, 30));
  summer.setMjdRise(at(3));
  summer.setMjdSet(at(23));
  const Neighbours yesterday{{false, at(-21)}, {true, at(-1)}};
  const Neighbours tomorrows{{false, at(24, 28)}, {true, at(26)}};
  EXPECT_EQ(span(summer, at(0, 10), yesterday, tomorrows), TwilightEvent(at(-1), at(0, 30)));
  EXPECT_EQ(span(summer, at(23, 30), yesterday, tomorrows), TwilightEvent(at(23), at(24, 28)));
  // A neighbour without the other half: the day's limits stand in.
  EXPECT_EQ(span(summer, at(0, 10), {}, {}), TwilightEvent(kMidnight, at(0, 30)));
  EXPECT_EQ(span(summer, at(23, 30), {}, {}), TwilightEvent(at(23), tomorrow));

  SunEvent allDay;
  allDay.civilTwilight = TwilightEvent(kAlwaysAbove, kAlwaysAbove);
  allDay.setMjdRise(kAlwaysBelow);
  allDay.setMjdSet(kAlwaysBelow);
  EXPECT_EQ(span(allDay, at(12), {}, {}), TwilightEvent(kMidnight, tomorrow));
  EXPECT_EQ(span(allDay, at(12), yesterday, tomorrows), TwilightEvent(at(-1), at(24, 28)));
}

// The spans against the Sun itself: over random places and days a moment lies in a span
// of a light when, and only when, the Sun stands between the limits of that light.
TEST_F(SunEventTest, SpansAreWhereTheSunIs) {
  std::mt19937_64 random(90);
  // Nearer to the poles the Sun may cross a limit three times a day; a search finds two.
  std::uniform_real_distribution<double> latitude(-85, 85), longitude(-180, 180);
  int spans = 0;
  for (int i = 0; i < 150; ++i) {
    const PtPosition place(latitude(random), longitude(random));
    const int day = static_cast<int>(random() % 70000);
    ephemeris::PtSun sun(place);
    const auto eventOn = [&](int d) {
      return sunEventOfDay(sun, LocalDay(dateIn("GMT", 1900, 1, 1 + day + d)), gmtCachedCalendar());
    };
    const SunEvent days[] = {eventOn(0), eventOn(1), eventOn(2)};
    const LocalDay today(dateIn("GMT", 1900, 1, 1 + day + 1));
    sun.computePosition(true, today.mjdAt0, today.deltaT);
    const double horizon =
        std::asin(sun.sinRiseAltitude(false, 0, sun.horizontal().distance_)) / kDegree;
    const std::tuple<LightType, double, double> limits[] = {{LightType::civil, -6, horizon},
                                                            {LightType::nautical, -12, -6},
                                                            {LightType::astronomical, -18, -12},
                                                            {LightType::blueHour, -6, -4},
                                                            {LightType::goldenHour, -4, 6}};
    for (int sample = 0; sample < 96; ++sample) {
      const double hour = 0.125 + sample / 4.0;
      const double mjd = today.mjdAt0 + hour / 24;
      const double elevation =
          std::asin(sun.sinAltitude(today.mjdAt0, today.deltaT, hour)) / kDegree;
      for (const auto& [light, low, high] : limits) {
        if (std::abs(elevation - low) < 0.1 || std::abs(elevation - high) < 0.1) continue;
        const auto span = days[1].currentEventForLightType(
            light, mjd, days[0].eventsForLightType(light), days[2].eventsForLightType(light),
            today.mjdAt0, today.mjdAt0 + 1);
        EXPECT_EQ(span.has_value(), elevation > low && elevation < high)
            << place.latitude() << " " << day << " " << hour << " " << static_cast<int>(light);
        if (!span) continue;
        ++spans;
        EXPECT_LE(span->mjdStart(), mjd);
        EXPECT_GE(span->mjdEnd(), mjd);
      }
    }
  }
  EXPECT_GT(spans, 3000);
}

TEST_F(SunEventTest, TheDaysChangesOfLight) {
  const std::vector<BodyInfoEvent> rows = plainDay().eventsArray();
  std::vector<std::string> lines;
  for (const BodyInfoEvent& row : rows) {
    lines.push_back(row.timeString(TimeZone()) + " " + row.name + ": " + row.subtitle);
  }
  EXPECT_THAT(lines,
              ElementsAre("04:00 Night: Night ends",
                          "04:40 Astronomical twilight: Astronomical twilight ends",
                          "05:20 Nautical twilight: Nautical twilight ends",
                          "05:30 Blue hour: Blue hour ends", "06:30 Golden hour: Golden hour ends",
                          "17:30 Daytime: Daytime ends", "18:30 Golden hour: Golden hour ends",
                          "18:40 Blue hour: Blue hour ends\nCivil twilight ends",
                          "19:20 Nautical twilight: Nautical twilight ends",
                          "20:00 Astronomical twilight: Astronomical twilight ends"));
  EXPECT_EQ(rows[0].bodyColor, colorForSunElevation(-30));
  EXPECT_EQ(rows[5].bodyColor, colorForSunElevation(30));
  EXPECT_TRUE(SunEvent().eventsArray().empty());
}

TEST_F(SunEventTest, RowsFindTheirPartsUnderAFinger) {
  BodyInfoEvent row;
  for (const double x : {20.0, 0.0, 10.0}) {
    BodyInfoEvent part;
    part.mjd = kMidnight + x;
    part.frame = {x, 5, 10, 10};
    row.addSubevent(part);
  }
  row.sortEvents();
  EXPECT_EQ(row.subevents[0].mjd, kMidnight);
  EXPECT_EQ(row.mjdForSubeventAtPoint(10, 5), kMidnight + 10);
  EXPECT_EQ(row.mjdForSubeventAtPoint(29.9, 14.9), kMidnight + 20);
  EXPECT_EQ(row.mjdForSubeventAtPoint(30, 5), kNotThisDay);
  EXPECT_EQ(row.mjdForSubeventAtPoint(10, 4.9), kNotThisDay);
  EXPECT_EQ(row.timeString(TimeZone()), "");
}

}  // namespace
}  // namespace zenivo::testing
