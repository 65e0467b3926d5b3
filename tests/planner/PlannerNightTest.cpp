#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

class PlannerNight : public SessionTest {};

// In 1850 too, when every mjd was negative and yet later than a sentinel.
TEST_F(PlannerNight, TheNightBelongsToItsEveningUntilMorning) {
  for (const int year : {1850, 2026}) {
    // La Palma in June: the galactic centre is up all through the dark hours but the last.
    const auto at = [year](int hour) { return dateIn("Etc/GMT", year, 6, 15, hour); };
    Session session(ZVObserver(Coordinate{28.76, -17.88}), zoneNamed("Etc/GMT"), at(21));
    const MilkyWayEvent evening = session->getCurrentMilkyWayEvent();
    EXPECT_TRUE(drawEventAtMjd(evening.mjdVisibilityFrom)) << year;
    for (const int hour : {23, 24, 28, 30}) {
      session->setCurrentDate(at(hour));
      const MilkyWayEvent& event = session->getCurrentMilkyWayEvent();
      EXPECT_EQ(event.mjdVisibilityFrom, evening.mjdVisibilityFrom) << year << " " << hour;
      EXPECT_EQ(event.mjdVisibilityTo, evening.mjdVisibilityTo) << year << " " << hour;
    }
    // On the threshold itself the next night has the word.
    session->setCurrentDate(session->mwDateThreshold());
    EXPECT_GT(session->getCurrentMilkyWayEvent().mjdVisibilityFrom, evening.mjdVisibilityTo);
  }
}

// Also where dusk comes shortly before or after midnight, or both on one day.
TEST_F(PlannerNight, MidnightDoesNotChangeTheNight) {
  int secondDusks = 0;
  Session session;
  session->setCurrentTimeZone(zoneNamed("Europe/Paris"));
  for (const double latitude : {30.0, 45.0, 47.5, 48.3}) {
    session->setCurrentPosition({latitude, -4.5}, false);
    for (int day = 1; day < 120; ++day) {
      session->setCurrentDate(dateIn("Europe/Paris", 2026, 5, day, 23, 59), true);
      const bool hasDusk =
          drawEventAtMjd(session->getCurrentSunEvent()->astronomicalTwilight.mjdEnd());
      secondDusks += session->getCurrentSunEvent()->astronomicalTwilight2.has_value();
      const MilkyWayEvent before = session->getCurrentMilkyWayEvent();
      session->setCurrentDate(dateIn("Europe/Paris", 2026, 5, day, 24, 1), true);
      const MilkyWayEvent& after = session->getCurrentMilkyWayEvent();
      if (!hasDusk) continue;
      EXPECT_EQ(before.mjdVisibilityFrom, after.mjdVisibilityFrom) << latitude << " " << day;
      EXPECT_EQ(before.mjdVisibilityTo, after.mjdVisibilityTo) << latitude << " " << day;
    }
  }
  EXPECT_GE(secondDusks, 2);
}

TEST_F(PlannerNight, NoDarkNightNoMilkyWay) {
  for (const auto& [latitude, month] : {std::pair{58.0, 6}, {65.0, 1}, {-70.0, 12}}) {
    const Session session(ZVObserver(Coordinate{latitude, 0}), TimeZone(),
                          dateIn("GMT", 2026, month, 20, 22));
    const MilkyWayEvent& event = session->getCurrentMilkyWayEvent();
    EXPECT_EQ(event.mjdVisibilityFrom, kAlwaysBelow) << latitude;
    EXPECT_EQ(event.mjdVisibilityTo, kAlwaysBelow) << latitude;
    EXPECT_EQ(event.riseAzimuth, -1) << latitude;
    EXPECT_EQ(event.visibilityFromAzimuth, -1) << latitude;
    EXPECT_EQ(event.visibilityFromElevation, -1) << latitude;
  }
}

// Against the sky: inside the window the Sun is below -18 degrees and the centre above
// the horizon; just outside, one of the two is not so.
TEST_F(PlannerNight, TheWindowIsDarkAndHasTheCentreUp) {
  std::mt19937_64 random(266);
  std::uniform_real_distribution<double> latitude(-60, 55), longitude(-180, 180),
      date(-3.1e9, 3.1e9);
  Session session;
  session->setCurrentTimeZone(TimeZone());
  int windows = 0;
  for (int i = 0; i < 300; ++i) {
    session->setCurrentPosition({latitude(random), longitude(random)}, false);
    session->setCurrentDate(Date::withTimeIntervalSinceReferenceDate(date(random)));
    const MilkyWayEvent event = session->getCurrentMilkyWayEvent();
    const double from = event.mjdVisibilityFrom, to = event.mjdVisibilityTo;
    if (!drawEventAtMjd(from)) continue;
    ++windows;
    ASSERT_LE(from, to);
    const auto isSeen = [&](double mjd) {
      session->setCurrentDate(dateFromModifiedJulianDay(mjd, true));
      return session->getSunPosition().elevation_ < -18 &&
             session->getMilkyWayPosition().elevation_ > 0;
    };
    constexpr double kMargin = 6.0 / 1440;  // right to a couple of minutes
    if (to - from > 3 * kMargin) {
      EXPECT_TRUE(isSeen(from + kMargin) && isSeen((from + to) / 2) && isSeen(to - kMargin));
    }
    EXPECT_FALSE(isSeen(from - kMargin) && isSeen(to + kMargin));
  }
  EXPECT_GT(windows, 150);
}

// By night the Milky Way's event is that of this night and by day of the coming one,
// also for who plans a place on the other side of the Earth by the clock at home.
TEST_F(PlannerNight, TheNightAtHandIsMeantInAnyZone) {
  std::mt19937_64 random(2894);
  std::uniform_real_distribution<double> latitude(-45, 45), longitude(-180, 180);
  Session session;
  session->setCurrentTimeZone(TimeZone());
  int nights = 0;
  for (int i = 0; i < 300; ++i) {
    session->setCurrentPosition({latitude(random), longitude(random)}, false);
    const Date date =
        dateIn("GMT", 2000 + i % 50, 1 + i % 12, 1 + i % 28, 0, static_cast<int>(random() % 1440));
    session->setCurrentDate(date);
    const MilkyWayEvent event = session->getCurrentMilkyWayEvent();
    const bool isDawn =
        session->getSunPosition().elevation_ < 1 && session->getSunPosition().azimuth_ < 180;
    const auto look = [&](double hours) {
      session->setCurrentDate(date.dateByAddingTimeInterval(hours * 3600), true);
      const double mjd = modifiedJulianDay(session->currentDate());
      ephemeris::PtSun sun(session->getObserver()->getPtPosition());
      ephemeris::PtMilkyWay centre(session->getObserver()->getPtPosition());
      sun.computePosition(true, mjd, 0.0008);
      centre.computePosition(true, mjd, 0.0008);
      return std::pair(sun.horizontal().elevation_<-18.5, centre.horizontal().elevation_> 0.5);
    };
    if (isDawn && !look(0).first) continue;  // it still belongs to the night before
    // The middle of what is seen of the first dark hours from now on.
    double first = -1, last = -1;
    bool wasDark = false;
    for (double hours = 0; hours < 24; hours += 0.1) {
      const auto [isDark, isUp] = look(hours);
      if (wasDark && !isDark) break;
      wasDark = isDark;
      if (!isDark || !isUp) continue;
      if (first < 0) first = hours;
      last = hours;
    }
    if (first < 0) continue;
    ++nights;
    const double seen = modifiedJulianDay(date) + (first + last) / 48;
    EXPECT_LT(event.mjdVisibilityFrom, seen) << i;
    EXPECT_GT(event.mjdVisibilityTo, seen) << i;
  }
  EXPECT_GT(nights, 150);
}

}  // namespace
}  // namespace zenivo::testing
