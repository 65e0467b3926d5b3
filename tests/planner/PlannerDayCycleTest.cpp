#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "engine/LocalMonth.h"
#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

using Type = TimeIntervalEventType;

constexpr Coordinate kParis{48.8566, 2.3522};

class PlannerDayCycle : public SessionTest {};

std::set<Type> typesOfToday(const PlannerManager& session) {
  std::set<Type> types;
  for (const auto& event : session.getEventSorter().sortedEvents()) types.insert(event.type);
  return types;
}

// Yesterday, today and tomorrow start at local midnights, whatever the clock does.
TEST_F(PlannerDayCycle, DaysStartAtLocalMidnights) {
  struct Case {
    const char* zone;
    int year, month, day;  // 23:50 and on, in three steps over the following days
  };
  constexpr Case kCases[] = {
      {"Europe/Paris", 2026, 3, 28},         // the next has 23 hours
      {"Europe/Paris", 2026, 10, 24},        // the next has 25 hours
      {"Africa/Cairo", 2026, 4, 23},         // the next starts at 01:00
      {"America/Santiago", 2026, 9, 5},      // the next starts at 01:00
      {"Asia/Beirut", 2026, 3, 28},          // the next starts at 01:00
      {"Pacific/Apia", 2011, 12, 29},        // there is no next
      {"Australia/Lord_Howe", 2026, 10, 3},  // the next has 23 and a half hours
      {"America/Havana", 2026, 11, 1},       // has two hours after midnight
  };
  for (const Case& c : kCases) {
    const Date evening = dateIn(c.zone, c.year, c.month, c.day, 23, 50);
    Session session(ZVObserver(kParis), zoneNamed(c.zone), evening);
    for (const double hours : {-36.0, -12.0, 12.0, 23.9, 23.9, 23.9, 23.9, -23.9, -23.9, -23.9}) {
      session->setCurrentDate(session->currentDate().dateByAddingTimeInterval(hours * 3600));
      const Date today = dateWithStartDateTime(session->currentDate());
      const Date expected[] = {
          dateWithStartDateTime(today.dateByAddingTimeInterval(-1)),
          today,
          // 27 hours after a midnight it is the next day, or after a skipped one the second
          dateWithStartDateTime(today.dateByAddingTimeInterval(27 * 3600)),
      };
      for (std::size_t day = 0; day < 3; ++day) {
        EXPECT_EQ(session->sunEvents()[day].date, expected[day].timeIntervalSinceReferenceDate())
            << c.zone << " " << day;
        EXPECT_EQ(session->moonEvents()[day].date, session->sunEvents()[day].date);
      }
    }
  }
}

// From 23:55 to 00:54 two days later are 23 h 59 min when the day between has 23 hours.
TEST_F(PlannerDayCycle, AMoveOverAShortDayIsNoShift) {
  Session session(ZVObserver(kParis), zoneNamed("Europe/Paris"),
                  dateIn("Europe/Paris", 2026, 3, 28, 23, 55));
  session->setCurrentDate(dateIn("Europe/Paris", 2026, 3, 30, 0, 54));
  const Session fresh(ZVObserver(kParis), zoneNamed("Europe/Paris"), session->currentDate());
  EXPECT_EQ(stateOf(*session), stateOf(*fresh));
  session->setCurrentDate(dateIn("Europe/Paris", 2026, 3, 28, 23, 55));
  const Session back(ZVObserver(kParis), zoneNamed("Europe/Paris"), session->currentDate());
  EXPECT_EQ(stateOf(*session), stateOf(*back));
}

TEST_F(PlannerDayCycle, PolarDayAndPolarNight) {
  const std::set<Type> moonAndNoon = {Type::moonRise, Type::moonTransit, Type::moonSet,
                                      Type::sunTransit};
  const auto onlyOf = [&](const PlannerManager& session, std::set<Type> types) {
    types.insert(moonAndNoon.begin(), moonAndNoon.end());
    const std::set<Type> found = typesOfToday(session);
    return std::includes(types.begin(), types.end(), found.begin(), found.end());
  };
  // Midnight Sun 13 degrees high: no crossing at all.
  Session session(ZVObserver(Coordinate{80, 0}), TimeZone(), dateIn("GMT", 2026, 6, 21, 3));
  EXPECT_EQ(session->getCurrentSunEvent()->mjdRise(), kAlwaysAbove);
  EXPECT_EQ(session->mwDateThreshold(), dateIn("GMT", 2026, 6, 21));
  EXPECT_TRUE(onlyOf(*session, {}));
  // 70 degrees north it sinks to 3 degrees, and golden hour has its limits.
  session->setCurrentPosition({70, 0}, false);
  EXPECT_EQ(session->getCurrentSunEvent()->mjdRise(), kAlwaysAbove);
  EXPECT_TRUE(onlyOf(*session, {Type::goldenHourStart, Type::goldenHourEnd}));
  EXPECT_TRUE(typesOfToday(*session).contains(Type::goldenHourStart));
  EXPECT_FALSE(drawEventAtMjd(session->getCurrentMilkyWayEvent().mjdVisibilityFrom));
  // The December Sun comes up to -3.4 degrees there: blue hour, but no rise.
  session->setCurrentDate(dateIn("GMT", 2026, 12, 21, 3));
  EXPECT_EQ(session->getCurrentSunEvent()->mjdRise(), kAlwaysBelow);
  EXPECT_TRUE(typesOfToday(*session).contains(Type::blueHourEnd));
  EXPECT_FALSE(typesOfToday(*session).contains(Type::sunRise));
  EXPECT_EQ(session->mwDateThreshold(),
            Date::withTimeIntervalSinceReferenceDate(
                session->getCurrentSunEvent()->civilTwilight.startTimeInterval()));
}

// The full Moons of 2016-11-14 and 2023-08-31 were supermoons, that of 2024-01-25
// was none (356511 km, 357181 km, 383000 km).  2026-02-01 has a full Moon on the
// first of a month, at 22:09 UT.
TEST_F(PlannerDayCycle, PhasesOfTheDays) {
  struct Case {
    int year, month, day;
    std::size_t slot;
    std::int32_t phase;
    bool isSupermoon;
  };
  constexpr Case kCases[] = {
      {2016, 11, 14, 1, kFullMoon, true},      {2016, 11, 15, 0, kFullMoon, true},
      {2023, 8, 31, 1, kFullMoon, true},       {2023, 9, 1, 0, kFullMoon, true},
      {2024, 1, 25, 1, kFullMoon, false},      {2024, 1, 11, 1, kNewMoon, false},
      {2026, 2, 1, 1, kFullMoon, false},       {2026, 2, 2, 0, kFullMoon, false},
      {2026, 1, 31, 2, kFullMoon, false},      {2026, 2, 3, 0, kNoMoonPhase, false},
      {2026, 1, 31, 1, kWaxingGibbous, false},
  };
  for (const Case& c : kCases) {
    const Session session(ZVObserver(kParis), TimeZone(), dateIn("GMT", c.year, c.month, c.day, 8));
    const MoonEvent& event = session->moonEvents()[c.slot];
    EXPECT_EQ(event.phase, c.phase) << c.year << "-" << c.month << "-" << c.day;
    EXPECT_EQ(event.isSupermoon, c.isSupermoon) << c.year << "-" << c.month << "-" << c.day;
    EXPECT_EQ(event.hasPrincipalPhase(), c.phase >= kNewMoon && c.phase <= kLastQuarter);
  }
}

TEST_F(PlannerDayCycle, IlluminationAtAPhaseIsExact) {
  Session session(ZVObserver(kParis), TimeZone(), dateIn("GMT", 2026, 2, 1, 8));
  const Date full = dateFromModifiedJulianDay(session->getCurrentMoonEvent()->mjdPhase, true);
  session->setCurrentDate(full);
  EXPECT_EQ(session->getCurrentMoonEvent()->phaseIllumination, 1.0);
  EXPECT_LT(session->getMoonPhase().phase_, 1.0);
  session->setCurrentDate(full.dateByAddingTimeInterval(600));
  EXPECT_EQ(session->getCurrentMoonEvent()->phaseIllumination, session->getMoonPhase().phase_);
}

// Half of the disk is lit some 20 minutes before the Moon is a quarter ahead of the
// Sun.  With a quarter just after midnight, the day before ends in another phase than
// it began with, and the event tells that of the moment.
TEST_F(PlannerDayCycle, WhatLiesBetweenPhasesFollowsTheMoment) {
  int days = 0;
  for (int month = 0; month < 70 * 12; ++month) {
    for (const PtMoonPhaseWithDate& phase : phasesFromDate(startOfMonth(1990, month))) {
      const bool isQuarter = phase.phase == kFirstQuarter || phase.phase == kLastQuarter;
      if (!isQuarter || phase.date.hour != 0 || phase.date.minutes > 10) continue;
      const Date midnight = dateWithStartDateTime(dateWithPtDateTime(phase.date));
      Session session(ZVObserver(kParis), TimeZone(), midnight.dateByAddingTimeInterval(-7200));
      for (const int minutes : {1, 60, 3, 120}) {
        session->setCurrentDate(midnight.dateByAddingTimeInterval(-60 * minutes));
        EXPECT_EQ(session->getCurrentMoonEvent()->phase, session->getMoonPhase().moon_phase_type_);
      }
      ++days;
    }
  }
  EXPECT_GT(days, 3);
}

TEST_F(PlannerDayCycle, PhasesAreListedForTheLocalMonth) {
  // Full Moon on 2026-05-31 at 08:45 UT; it is May 30, 20:45 in Etc/GMT+12.
  Session session(ZVObserver(kParis), zoneNamed("Etc/GMT+12"),
                  dateIn("Etc/GMT+12", 2026, 5, 31, 22));
  ASSERT_NE(session->getPhaseForDay(30, 5), nullptr);
  EXPECT_EQ(session->getPhaseForDay(30, 5)->phase, kFullMoon);
  EXPECT_EQ(session->getPhaseForDay(31, 5), nullptr);
  session->setCurrentTimeZone(TimeZone());  // and now it is June there
  EXPECT_EQ(session->getPhaseForDay(31, 5), nullptr);
  session->freeMoonPhaseObjects();
  EXPECT_EQ(session->getPhaseForDay(8, 6), nullptr);
}

// A phase in the last seconds of a month is shown at 00:00 of the next, and so on its
// first day, from wherever the session came there.
TEST_F(PlannerDayCycle, PhasesInTheLastSecondsOfAMonth) {
  int found = 0;
  for (int month = 0; month < 400 * 12; month += 2) {
    for (const PtMoonPhaseWithDate& phase : phasesFromDate(startOfMonth(1800, month))) {
      // Seconds before a full hour of a month's last day, where some zone has its midnight.
      const int zone = 23 - phase.date.hour;
      const Date noon = dateIn("GMT", phase.date.year, phase.date.month, phase.date.day + 1, 12);
      if (phase.date.minutes < 59.5 || dayValue(noon) != 1 || zone > 14) continue;
      const std::string name = "Etc/GMT-" + std::to_string(zone);
      Session session(ZVObserver(kParis), zoneNamed(name), noon.dateByAddingTimeInterval(-86340));
      EXPECT_EQ(session->moonEvents()[2].phase, phase.phase);
      session->setCurrentDate(noon);
      EXPECT_EQ(session->getCurrentMoonEvent()->phase, phase.phase);
      const Session fresh(ZVObserver(kParis), zoneNamed(name), noon);
      EXPECT_EQ(stateOf(*session), stateOf(*fresh));
      ++found;
      session->setCurrentTimeZone(TimeZone());
    }
  }
  EXPECT_GT(found, 1);
}

}  // namespace
}  // namespace zenivo::testing
