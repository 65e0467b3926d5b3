#include "commands/sky/DarkNight.h"

#include <gtest/gtest.h>

#include "answers/common/Session.h"
#include "answers/common/Words.h"
#include "engine/MoonlessHours.h"
#include "time/DateEphemeris.h"

namespace zenivo::cli {
namespace {

Scene sceneAt(double latitude, double longitude, const char* zone) {
  Scene scene;
  scene.location = ZVLocation(Coordinate{latitude, longitude});
  scene.zone = TimeZone::timeZoneWithName(zone).value();
  return scene;
}

Date noonOf(const Scene& scene, std::int64_t year, int month, int day) {
  return Calendar(scene.zone)
      .dateFromComponents({.year = year, .month = month, .day = day, .hour = 12});
}

// The spans come from a search that begins at dusk, the session's hours from days
// that begin at midnight: the same crossings, but for the Moon's distance, which
// each search takes at its start.
TEST(DarkNight, MoonlessSpansAddUpToTheMoonlessHours) {
  const Scene scene = sceneAt(45, 7, "Europe/Rome");
  Session session(scene, noonOf(scene, 2026, 1, 1));
  PlannerManager& planner = session.planner();
  ephemeris::PtSun sun(scene.location.getPtPosition());
  ephemeris::PtMoon moon(scene.location.getPtPosition());
  for (int day = 1; day <= 365; ++day) {
    const Date noon = noonOf(scene, 2026, 1, day);
    planner.setCurrentDate(noon);
    const auto night = nightBeginningOnDay(planner);
    const double hours = moonlessHoursForNightAtDate(noon, sun, moon, cachedCalendar());
    EXPECT_NEAR(night ? night->moonlessHours() : 0, hours, 0.02) << day;
  }
}

TEST(DarkNight, NoDarknessInSummerAndDarkNoonsInPolarNight) {
  const Scene paris = sceneAt(48.8584, 2.2945, "Europe/Paris");
  EXPECT_FALSE(nightBeginningOnDay(Session(paris, noonOf(paris, 2026, 6, 21)).planner()));
  // At the pole the Sun is 23 degrees down all day in December.
  const Scene pole = sceneAt(90, 0, "UTC");
  const auto night = nightBeginningOnDay(Session(pole, noonOf(pole, 2026, 12, 21)).planner());
  ASSERT_TRUE(night);
  EXPECT_DOUBLE_EQ(night->darkness.hours(), 24);
}

// Far north the nights join into one.  Through the year every midnight of darkness
// belongs to the night around it.
TEST(DarkNight, HoldsEveryDarkMidnight) {
  const Scene scene = sceneAt(86, 0, "UTC");
  Session session(scene, noonOf(scene, 2026, 1, 1));
  ephemeris::PtSun sun(scene.location.getPtPosition());
  int dark = 0;
  for (int day = 1; day <= 365; ++day) {
    session.planner().setCurrentDate(noonOf(scene, 2026, 1, day));
    const double midnight = modifiedJulianDay(session.planner().currentDate()) + 0.5;
    sun.computePosition(true, midnight, 75 / 86400.0);
    if (sun.horizontal().elevation_ > -18.05) continue;
    ++dark;
    const auto night = nightBeginningOnDay(session.planner());
    ASSERT_TRUE(night) << day;
    EXPECT_LT(night->darkness.start, midnight) << day;
    EXPECT_GT(night->darkness.end, midnight) << day;
  }
  EXPECT_GT(dark, 90);
}

TEST(DarkNight, TheNightThatEndsIsTheOneThatBegan) {
  const Scene scene = sceneAt(28.76, -17.88, "Atlantic/Canary");
  const auto began = nightBeginningOnDay(Session(scene, noonOf(scene, 2026, 8, 11)).planner());
  const auto ends = nightEndingOnDay(Session(scene, noonOf(scene, 2026, 8, 12)).planner());
  ASSERT_TRUE(began && ends);
  EXPECT_EQ(began->darkness.start, ends->darkness.start);
  EXPECT_EQ(began->darkness.end, ends->darkness.end);
}

TEST(Words, NoMinusZeroAndNoFullTurn) {
  EXPECT_EQ(degrees(-0.27), "0°");
  EXPECT_EQ(degrees(-0.27, 1), "-0.3°");
  EXPECT_EQ(bearing(359.6), "0°");
  EXPECT_EQ(bearing(359.6, 1), "359.6°");
  EXPECT_EQ(bearing(359.996, 2), "0.00°");
  EXPECT_EQ(kilometres(384399.5), "384,400 km");
  EXPECT_EQ(phaseName(-1), "");
  EXPECT_EQ(phaseName(2), "Full Moon");
}

}  // namespace
}  // namespace zenivo::cli
