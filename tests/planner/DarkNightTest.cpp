#include "planner/DarkNight.h"

#include <gtest/gtest.h>

#include <array>

#include "engine/MoonlessHours.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "planner/DaySearch.h"
#include "support/Times.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

/// The nights of a place, by the local days of its zone.
class Nights {
 public:
  Nights(double latitude, double longitude, const char* zone)
      : observer_(latitude, longitude), calendar_(zoneNamed(zone)) {}

  Date noon(std::int64_t year, int month, int day) const {
    return calendar_.dateFromComponents({.year = year, .month = month, .day = day, .hour = 12});
  }
  std::optional<DarkNight> beginningAt(Date noon) const {
    return nightBeginningOnDay(around(noon), observer_, calendar_);
  }
  std::optional<DarkNight> endingAt(Date noon) const {
    return nightEndingOnDay(around(noon), observer_, calendar_);
  }
  DarkNightSearch next(
      Date moment, std::optional<double> hours,
      const GoOn& goOn = [](double) { return true; }) const {
    return nextDarkNight(observer_, calendar_, moment, {hours}, goOn);
  }

  const PtPosition& observer() const { return observer_; }
  const Calendar& calendar() const { return calendar_; }

 private:
  std::array<SunEvent, 3> around(Date noon) const {
    ephemeris::PtSun sun(observer_);
    const LocalDay today = LocalDay::of(noon, calendar_);
    return {sunEventOfDay(sun, today.dayAfter(-1, calendar_), calendar_),
            sunEventOfDay(sun, today, calendar_),
            sunEventOfDay(sun, today.dayAfter(1, calendar_), calendar_)};
  }

  PtPosition observer_;
  Calendar calendar_;
};

// The spans come from a search that begins at dusk, the session's hours from days
// that begin at midnight: the same crossings, but for the Moon's distance, which
// each search takes at its start.
TEST(DarkNight, MoonlessSpansAddUpToTheMoonlessHours) {
  const Nights place(45, 7, "Europe/Rome");
  ephemeris::PtSun sun(place.observer());
  ephemeris::PtMoon moon(place.observer());
  for (int day = 1; day <= 365; ++day) {
    const Date noon = place.noon(2026, 1, day);
    const auto night = place.beginningAt(noon);
    const double hours = moonlessHoursForNightAtDate(noon, sun, moon, place.calendar());
    EXPECT_NEAR(night ? night->moonlessHours() : 0, hours, 0.02) << day;
  }
}

TEST(DarkNight, NoDarknessInSummerAndDarkNoonsInPolarNight) {
  const Nights paris(48.8584, 2.2945, "Europe/Paris");
  EXPECT_FALSE(paris.beginningAt(paris.noon(2026, 6, 21)));
  // At the pole the Sun is 23 degrees down all day in December.
  const Nights pole(90, 0, "UTC");
  const auto night = pole.beginningAt(pole.noon(2026, 12, 21));
  ASSERT_TRUE(night);
  EXPECT_DOUBLE_EQ(night->darkness.hours(), 24);
}

// Far north the nights join into one.  Through the year every midnight of darkness
// belongs to the night around it.
TEST(DarkNight, HoldsEveryDarkMidnight) {
  const Nights place(86, 0, "UTC");
  ephemeris::PtSun sun(place.observer());
  int dark = 0;
  for (int day = 1; day <= 365; ++day) {
    const Date noon = place.noon(2026, 1, day);
    const double midnight = modifiedJulianDay(noon) + 0.5;
    sun.computePosition(true, midnight, 75 / 86400.0);
    if (sun.horizontal().elevation_ > -18.05) continue;
    ++dark;
    const auto night = place.beginningAt(noon);
    ASSERT_TRUE(night) << day;
    EXPECT_LT(night->darkness.start, midnight) << day;
    EXPECT_GT(night->darkness.end, midnight) << day;
  }
  EXPECT_GT(dark, 90);
}

TEST(DarkNight, TheNightThatEndsIsTheOneThatBegan) {
  const Nights place(28.76, -17.88, "Atlantic/Canary");
  const auto began = place.beginningAt(place.noon(2026, 8, 11));
  const auto ends = place.endingAt(place.noon(2026, 8, 12));
  ASSERT_TRUE(began && ends);
  EXPECT_EQ(began->darkness.start, ends->darkness.start);
  EXPECT_EQ(began->darkness.end, ends->darkness.end);
}

TEST(NextDarkNight, CountsWhatIsLeftOfTheNightAndStopsWhenTold) {
  const Nights place(28.76, -17.88, "Atlantic/Canary");
  // New Moon of 2026-08-12: every night around it is free of the Moon for hours.
  const auto whole = place.next(place.noon(2026, 8, 12), 6).found;
  ASSERT_TRUE(whole);
  const double middle = (whole->night.darkness.start + whole->night.darkness.end) / 2;
  const auto rest = place.next(dateOfMjd(middle), 1).found;
  ASSERT_TRUE(rest);
  EXPECT_EQ(rest->day, dateByAddingNumberOfDays(dateOfMjd(middle), -1, place.calendar()));
  EXPECT_NEAR(rest->night.darkness.start, middle, 1.1 / kSecondsPerDay);
  EXPECT_EQ(rest->night.darkness.end, whole->night.darkness.end);
  EXPECT_NE(place.next(dateOfMjd(middle), 6).found->day, rest->day);

  int asked = 0;
  const DarkNightSearch stopped =
      place.next(place.noon(2026, 5, 20), 23, [&](double) { return ++asked < 5; });
  EXPECT_FALSE(stopped.isComplete || stopped.found);
  EXPECT_EQ(asked, 5);
}

}  // namespace
}  // namespace zenivo
