#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "foundation/DateFormatter.h"
#include "planner/SessionFixture.h"
#include "time/LocalMonth.h"

namespace zenivo::testing {
namespace {

struct Phase {
  std::int32_t phase;
  Date date;
};

/// All principal phases of the years around those of the jumps.
const std::vector<Phase>& phases() {
  static const std::vector<Phase> list = [] {
    std::vector<Phase> found;
    PtDateTime start = startOfMonth(1975, 1, cachedCalendar());
    while (start.year < 2076) {
      const auto next = phasesFromDate(start).front();
      found.push_back({next.phase, dateWithPtDateTime(next.date)});
      setFromMjd(start, getMjd(next.date) + 1);
    }
    return found;
  }();
  return list;
}

Date nextPhase(Date date) {
  return std::ranges::upper_bound(phases(), date, {}, &Phase::date)->date;
}

Date previousPhase(Date date) {
  return std::prev(std::ranges::lower_bound(phases(), date, {}, &Phase::date))->date;
}

/// The new Moon after a moment, or before it, that falls on another local day.
Date newMoon(Date date, bool after) {
  const auto fits = [&](const Phase& p) {
    return p.phase == kNewMoon && (p.date > date) == after &&
           !isDateSameDayAsDate(p.date, date, cachedCalendar());
  };
  return after ? std::ranges::find_if(phases(), fits)->date
               : std::find_if(phases().rbegin(), phases().rend(), fits)->date;
}

class PlannerJumps : public SessionTest {};

TEST_F(PlannerJumps, LandOnTheNeighbouringPhase) {
  std::mt19937_64 random(29530);
  for (const char* zone :
       {"Etc/GMT+12", "Pacific/Kiritimati", "GMT", "America/New_York", "Africa/Cairo"}) {
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
      EXPECT_TRUE(isDateSameDayAsDate(next, newMoon(start, true), cachedCalendar())) << text;
      EXPECT_NEAR(session->getSunPosition().elevation_, -18, 0.2) << text;
      const Date last = jump(&PlannerManager::jumpToPreviousNewMoonAtTheEndOfAstronomicalTwilight);
      EXPECT_TRUE(isDateSameDayAsDate(last, newMoon(start, false), cachedCalendar())) << text;
    }
  }
}

// February 2014 had no new Moon; those around it were on January 30 and March 1.
TEST_F(PlannerJumps, OverAMonthWithoutNewMoon) {
  for (const int hour : {7, 9}) {
    Session session(ZVObserver(Coordinate{35, 20}), TimeZone(), dateIn("GMT", 2014, 3, 1, hour));
    session->jumpToPreviousNewMoonAtTheEndOfAstronomicalTwilight();
    EXPECT_TRUE(
        isDateSameDayAsDate(session->currentDate(), dateIn("GMT", 2014, 1, 30), cachedCalendar()));
    session->jumpToNextNewMoonAtTheEndOfAstronomicalTwilight();
    EXPECT_TRUE(
        isDateSameDayAsDate(session->currentDate(), dateIn("GMT", 2014, 3, 1), cachedCalendar()));
  }
}

// New Moon of 2026-06-15, 02:54 UT; the Sun does not set in northern Norway.
TEST_F(PlannerJumps, WithoutDuskItStaysAtTheNewMoon) {
  Session session(ZVObserver(Coordinate{70, 25}), TimeZone(), dateIn("GMT", 2026, 6, 1));
  session->jumpToNextNewMoonAtTheEndOfAstronomicalTwilight();
  EXPECT_EQ(session->currentDate(), newMoon(dateIn("GMT", 2026, 6, 1), true));
  EXPECT_NEAR(session->currentDate().timeIntervalSinceDate(dateIn("GMT", 2026, 6, 15, 2, 55)), 0,
              120);
}

}  // namespace
}  // namespace zenivo::testing
