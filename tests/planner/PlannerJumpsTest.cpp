#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "engine/LocalMonth.h"
#include "foundation/DateFormatter.h"
#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

using ::testing::ElementsAre;

struct Phase {
  std::int32_t phase;
  Date date;
};

/// All principal phases of some years, month by month.
std::vector<Phase> phasesOfYears(int first, int last) {
  std::vector<Phase> phases;
  PtDateTime start = startOfMonth(first, 1);
  const double end = getMjd(startOfMonth(last + 1, 1));
  while (getMjd(start) < end) {
    const auto next = phasesFromDate(start).front();
    phases.push_back({next.phase, dateWithPtDateTime(next.date)});
    setFromMjd(start, getMjd(next.date) + 1);
  }
  return phases;
}

class PlannerJumps : public SessionTest {
 protected:
  static const std::vector<Phase>& phases() {
    static const std::vector<Phase> list = phasesOfYears(1975, 2075);
    return list;
  }

  static Date nextPhase(Date date) {
    return std::ranges::upper_bound(phases(), date, {}, &Phase::date)->date;
  }
  static Date previousPhase(Date date) {
    return std::prev(std::ranges::lower_bound(phases(), date, {}, &Phase::date))->date;
  }
  /// The new Moons around a moment that fall on other local days than it.
  static Date nextNewMoon(Date date) {
    return std::ranges::find_if(phases(),
                                [&](const Phase& p) {
                                  return p.phase == kNewMoon && p.date > date &&
                                         !isDateSameDayAsDate(p.date, date);
                                })
        ->date;
  }
  static Date previousNewMoon(Date date) {
    return std::find_if(phases().rbegin(), phases().rend(),
                        [&](const Phase& p) {
                          return p.phase == kNewMoon && p.date < date &&
                                 !isDateSameDayAsDate(p.date, date);
                        })
        ->date;
  }
};

TEST_F(PlannerJumps, LandOnTheNeighbouringPhase) {
  std::mt19937_64 random(29530);
  const std::vector<std::string> zones{"Etc/GMT+12", "Pacific/Kiritimati", "GMT",
                                       "America/New_York", "Africa/Cairo"};
  for (const std::string& zone : zones) {
    Session session(ZVObserver(Coordinate{35, 20}), zoneNamed(zone), dateIn(zone, 2026, 1, 1));
    for (int i = 0; i < 40; ++i) {
      // Every third start is a phase itself, every third the last evening of a month.
      const int year = static_cast<int>(1980 + random() % 90), month = 1 + static_cast<int>(i % 12);
      Date start = dateIn(zone, year, month + 1, 1, 0, -static_cast<int>(random() % 300));
      if (i % 3 == 0) start = nextPhase(start);
      if (i % 3 == 1) start = dateIn(zone, year, month, 15, 0, static_cast<int>(random() % 20000));

      const auto jump = [&](void (PlannerManager::*operation)()) {
        session->setCurrentDate(start);
        ((*session).*operation)();
        return session->currentDate();
      };
      const std::string text = iso8601String(start, zoneNamed(zone));
      EXPECT_EQ(jump(&PlannerManager::jumpToNextMoonPhase), nextPhase(start)) << text;
      EXPECT_EQ(jump(&PlannerManager::jumpToPreviousMoonPhase), previousPhase(start)) << text;

      // At 35 degrees north every day has its dusk.
      const Date next = jump(&PlannerManager::jumpToNextNewMoonAtTheEndOfAstronomicalTwilight);
      EXPECT_TRUE(isDateSameDayAsDate(next, nextNewMoon(start))) << text;
      EXPECT_NEAR(session->getSunPosition().elevation_, -18, 0.2) << text;
      EXPECT_EQ(next.timeIntervalSinceReferenceDate(),
                session->getCurrentSunEvent()->astronomicalTwilight.endTimeInterval());
      const Date previous =
          jump(&PlannerManager::jumpToPreviousNewMoonAtTheEndOfAstronomicalTwilight);
      EXPECT_TRUE(isDateSameDayAsDate(previous, previousNewMoon(start))) << text;
    }
  }
}

// February 2014 had no new Moon; those around it were on January 30 and March 1.
TEST_F(PlannerJumps, OverAMonthWithoutNewMoon) {
  for (const int hour : {7, 9}) {
    Session session(ZVObserver(Coordinate{35, 20}), TimeZone(), dateIn("GMT", 2014, 3, 1, hour));
    session->jumpToPreviousNewMoonAtTheEndOfAstronomicalTwilight();
    EXPECT_TRUE(isDateSameDayAsDate(session->currentDate(), dateIn("GMT", 2014, 1, 30)));
    session->jumpToNextNewMoonAtTheEndOfAstronomicalTwilight();
    EXPECT_TRUE(isDateSameDayAsDate(session->currentDate(), dateIn("GMT", 2014, 3, 1)));
  }
}

TEST_F(PlannerJumps, WithoutDuskItStaysAtTheNewMoon) {
  // New Moon of 2026-06-15, 02:54 UT; the Sun does not set in northern Norway.
  Session session(ZVObserver(Coordinate{70, 25}), TimeZone(), dateIn("GMT", 2026, 6, 1));
  session->jumpToNextNewMoonAtTheEndOfAstronomicalTwilight();
  EXPECT_EQ(session->currentDate(), nextNewMoon(dateIn("GMT", 2026, 6, 1)));
  EXPECT_NEAR(session->currentDate().timeIntervalSinceDate(dateIn("GMT", 2026, 6, 15, 2, 55)), 0,
              120);
}

}  // namespace
}  // namespace zenivo::testing
