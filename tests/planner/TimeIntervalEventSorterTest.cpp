#include "planner/TimeIntervalEventSorter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "planner/PlainDay.h"
#include "time/DateEphemeris.h"

namespace zenivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using enum TimeIntervalEventType;

/// A plain day, on which the Moon sets before it rises.
class TimeIntervalEventSorterTest : public ::testing::Test {
 protected:
  TimeIntervalEventSorterTest() {
    MoonEvent& moon = moons[1];
    moon.setMjdSet(at(6));  // with the Sun
    moon.setMjdTransit(kNotThisDay);
    moon.setMjdRise(at(19));
    sorter.sortEventIntervalsSunEvents(suns, moons);
  }

  static std::vector<TimeIntervalEventType> typesOf(
      const std::vector<TimeIntervalEventWithType>& events) {
    std::vector<TimeIntervalEventType> list;
    for (const auto& event : events) list.push_back(event.type);
    return list;
  }
  std::vector<TimeIntervalEventType> types() const { return typesOf(sorter.sortedEvents()); }

  std::vector<SunEvent> suns{{}, plainDay(), {}};
  std::vector<MoonEvent> moons{3};
  TimeIntervalEventSorter sorter;
};

TEST_F(TimeIntervalEventSorterTest, RealEventsOfTodayInTimeOrder) {
  EXPECT_THAT(types(),
              ElementsAre(astronomicalTwilightStart, nauticalTwilightStart, civilTwilightStart,
                          blueHourEnd, sunRise, moonSet, goldenHourEnd, sunTransit, goldenHourStart,
                          sunSet, blueHourStart, civilTwilightEnd, moonRise, nauticalTwilightEnd,
                          astronomicalTwilightEnd));
  sorter.sortEventIntervalsSunEvents({}, {});
  EXPECT_THAT(types(), IsEmpty());
}

TEST_F(TimeIntervalEventSorterTest, ASecondDuskIsListedAsWell) {
  suns[1].astronomicalTwilight = TwilightEvent(at(2), at(0, 30));
  suns[1].astronomicalTwilight2 = TwilightEvent(kAlwaysBelow, at(23, 58));
  sorter.sortEventIntervalsSunEvents(suns, moons);
  EXPECT_EQ(types().front(), astronomicalTwilightEnd);
  EXPECT_EQ(types().back(), astronomicalTwilightEnd);
}

TEST_F(TimeIntervalEventSorterTest, AnEventKeepsTheMomentThatItsMinuteStandsFor) {
  suns[1].setMjdSet(at(18, 0.3));
  moons[1].setMjdSet(at(18, -0.3));
  sorter.sortEventIntervalsSunEvents(suns, moons);
  const auto evening =
      sorter.searchEventAtInterval(mjdToTimeInterval(at(18)), NearestEvent::after, 0);
  ASSERT_THAT(typesOf(evening), ElementsAre(sunSet, moonSet));
  EXPECT_EQ(evening[0].mjd, at(18, 0.3));
  EXPECT_EQ(evening[1].mjd, at(18, -0.3));
}

TEST_F(TimeIntervalEventSorterTest, NearestEventThatTheMapShows) {
  const auto& events = sorter.sortedEvents();
  const double sunrise = events[4].interval;
  struct Case {
    double interval;
    NearestEvent side;
    int mapType;
    std::size_t index;
  };
  const std::size_t none = events.size();
  const Case kCases[] = {
      {sunrise, NearestEvent::after, 0, 4},
      {sunrise + 1, NearestEvent::after, 0, 6},
      {sunrise, NearestEvent::before, 0, 5},
      {sunrise - 1, NearestEvent::before, 0, 3},
      {sunrise, NearestEvent::after, 2, 5},
      {sunrise, NearestEvent::before, 1, 4},
      {sunrise + 1, NearestEvent::after, 2, 6},
      {events[7].interval, NearestEvent::after, 2, 8},
      {events[12].interval, NearestEvent::after, 1, 13},
      {events[0].interval - 1, NearestEvent::before, 0, none},
      {events[14].interval + 1, NearestEvent::after, 0, none},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(sorter.indexOfNearestTimeInterval(c.interval, c.side, c.mapType), c.index)
        << c.interval - sunrise << " on map " << c.mapType;
  }
}

TEST_F(TimeIntervalEventSorterTest, EventsOfOneMomentComeTogether) {
  const double sunrise = sorter.sortedEvents()[4].interval;
  const auto found = [&](double interval, NearestEvent side) {
    return typesOf(sorter.searchEventAtInterval(interval, side, 0));
  };
  EXPECT_THAT(found(sunrise - 5, NearestEvent::after), ElementsAre(sunRise, moonSet));
  EXPECT_THAT(found(sunrise + 5, NearestEvent::before), ElementsAre(moonSet, sunRise));
  const auto& events = sorter.sortedEvents();
  EXPECT_THAT(found(events.front().interval, NearestEvent::before),
              ElementsAre(astronomicalTwilightStart));
  EXPECT_THAT(found(events.back().interval, NearestEvent::after),
              ElementsAre(astronomicalTwilightEnd));
  EXPECT_THAT(found(events.back().interval + 1, NearestEvent::after), IsEmpty());
}

// Events stand on whole minutes, so that the truncating comparison never disagrees
// with the order.
TEST_F(TimeIntervalEventSorterTest, TheOrderNeverContradictsTheComparison) {
  std::mt19937_64 random(60);
  for (int i = 0; i < 200; ++i) {
    // All within a few minutes.
    const auto close = [&] { return at(12, static_cast<double>(random() % 600) / 100); };
    SunEvent& sun = suns[1];
    sun.setMjdRise(close());
    sun.setMjdTransit(close());
    sun.civilTwilight = TwilightEvent(close(), close());
    moons[1].setMjdSet(close());
    sorter.sortEventIntervalsSunEvents(suns, moons);
    const auto& events = sorter.sortedEvents();
    for (std::size_t a = 0; a < events.size(); ++a) {
      for (std::size_t b = a; b < events.size(); ++b) EXPECT_LE(events[a].compare(events[b]), 0);
    }
  }
  EXPECT_EQ((TimeIntervalEventWithType{10.9, sunRise}).compare({10.0, sunSet}), 0);
  EXPECT_EQ((TimeIntervalEventWithType{10.0, sunRise}).compare({12.5, sunSet}), -2);
}

}  // namespace
}  // namespace zenivo::testing
