#include <gtest/gtest.h>

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
      const SunEvent& today = *session->getCurrentSunEvent();
      const bool hasDusk = drawEventAtMjd(today.astronomicalTwilight.mjdEnd());
      secondDusks += today.astronomicalTwilight2.has_value();
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

// Within five degrees of the South Pole it stays dark for weeks, and the galactic centre,
// 29 degrees south, never sets: whenever it is dark the window holds the moment.
TEST_F(PlannerNight, PolarNightIsNightAtAnyHour) {
  for (const double latitude : {-85.5, -87.0, -90.0}) {
    Session session(ZVObserver(Coordinate{latitude, 15}), TimeZone(), dateIn("GMT", 2026, 4, 1));
    int dark = 0;
    for (int hours = 0; hours < 160 * 24; hours += 7) {
      session->setCurrentDate(dateIn("GMT", 2026, 4, 1, hours));
      if (session->getSunPosition().elevation_ > -18.2) continue;
      ++dark;
      const MilkyWayEvent& event = session->getCurrentMilkyWayEvent();
      const double now = modifiedJulianDay(session->currentDate());
      EXPECT_LE(event.mjdVisibilityFrom, now) << latitude << " " << hours;
      EXPECT_GE(event.mjdVisibilityTo, now) << latitude << " " << hours;
      EXPECT_GT(event.visibilityFromElevation, 20) << latitude << " " << hours;
    }
    EXPECT_GT(dark, 200) << latitude;
  }
}

TEST_F(PlannerNight, NoDarkNightNoMilkyWay) {
  for (const auto& [latitude, month] : {std::pair{58.0, 6}, {65.0, 1}, {-70.0, 12}}) {
    const Session session(ZVObserver(Coordinate{latitude, 0}), TimeZone(),
                          dateIn("GMT", 2026, month, 20, 22));
    const MilkyWayEvent& event = session->getCurrentMilkyWayEvent();
    EXPECT_EQ(event.mjdVisibilityFrom, kAlwaysBelow) << latitude;
    EXPECT_EQ(event.mjdVisibilityTo, kAlwaysBelow) << latitude;
    for (const double none :
         {event.riseAzimuth, event.visibilityFromAzimuth, event.visibilityFromElevation}) {
      EXPECT_EQ(none, -1) << latitude;
    }
  }
}

// Against the sky: inside the window the Sun is below -18 degrees and the centre above
// the horizon; just outside, one of the two is not so.  By night it is the window of this
// night and by day of the coming one, also for who plans a place on the other side of the
// Earth by the clock at home.
TEST_F(PlannerNight, TheWindowIsThatOfTheNightAtHandInAnyZone) {
  std::mt19937_64 random(2894);
  std::uniform_real_distribution<double> latitude(-45, 45), longitude(-180, 180);
  Session session;
  int nights = 0;
  for (int i = 0; i < 300; ++i) {
    session->setCurrentPosition({latitude(random), longitude(random)}, false);
    session->setCurrentDate(dateIn("GMT", 1900 + i % 200, 1 + i % 12, 1 + i % 28, 0,
                                   static_cast<int>(random() % 1440)));
    const double now = modifiedJulianDay(session->currentDate());
    const double from = session->getCurrentMilkyWayEvent().mjdVisibilityFrom;
    const double to = session->getCurrentMilkyWayEvent().mjdVisibilityTo;
    ephemeris::PtSun sun(session->getObserver()->getPtPosition());
    ephemeris::PtMilkyWay centre(sun.getPosition());
    // By so many degrees dark, and with the centre up.
    const auto look = [&](double mjd, double margin) {
      sun.computePosition(true, mjd, 0.0008);
      centre.computePosition(true, mjd, 0.0008);
      return std::pair(
          sun.horizontal().elevation_<-18 - margin, centre.horizontal().elevation_> margin);
    };
    constexpr double kMargin = 6.0 / 1440;  // right to a couple of minutes
    const std::pair seen(true, true);
    if (drawEventAtMjd(from)) {
      for (const double mjd : {from + kMargin, (from + to) / 2, to - kMargin}) {
        EXPECT_TRUE(to - from < 3 * kMargin || look(mjd, 0) == seen) << i;
      }
      EXPECT_TRUE(look(from - kMargin, 0) != seen && look(to + kMargin, 0) != seen) << i;
    }
    const bool isDark = look(now, 0.5).first;
    const bool isDawn = sun.horizontal().elevation_ < 1 && sun.horizontal().azimuth_ < 180;
    if (isDawn && !isDark) continue;  // it still belongs to the night before
    // The middle of what is seen of the first dark hours from now on.
    double first = 0, last = 0;
    bool wasDark = false;
    for (double mjd = now; mjd < now + 1; mjd += 0.004) {
      const auto [dark, up] = look(mjd, 0.5);
      if (wasDark && !dark) break;
      wasDark = dark;
      if (!dark || !up) continue;
      if (first == 0) first = mjd;
      last = mjd;
    }
    if (first == 0) continue;
    ++nights;
    EXPECT_LT(from, (first + last) / 2) << i;
    EXPECT_GT(to, (first + last) / 2) << i;
  }
  EXPECT_GT(nights, 150);
}

}  // namespace
}  // namespace zenivo::testing
