#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "planner/SessionFixture.h"
#include "time/LocalMonth.h"

namespace zenivo::testing {
namespace {

using ::testing::Contains;
using ::testing::IsSubsetOf;
using ::testing::Not;
using Type = TimeIntervalEventType;

class PlannerDayCycle : public SessionTest {};

std::set<Type> typesOfToday(const PlannerManager& session) {
  std::set<Type> types;
  for (const auto& event : session.getEventSorter().sortedEvents()) types.insert(event.type);
  return types;
}

// From 23:55 to 00:54 two days later are 23 h 59 min when the day between has 23 hours.
TEST_F(PlannerDayCycle, AMoveOverAShortDayIsNoShift) {
  const Date before = dateIn("Europe/Paris", 2026, 3, 28, 23, 55);
  const Date after = dateIn("Europe/Paris", 2026, 3, 30, 0, 54);
  for (const auto& [from, to] : {std::pair{before, after}, {after, before}}) {
    Session session(ZVObserver(kParis), zoneNamed("Europe/Paris"), from);
    session->setCurrentDate(to);
    const Session fresh(ZVObserver(kParis), zoneNamed("Europe/Paris"), to);
    EXPECT_EQ(stateOf(*session), stateOf(*fresh));
  }
}

TEST_F(PlannerDayCycle, PolarDayAndPolarNight) {
  std::set<Type> possible{Type::moonRise, Type::moonTransit, Type::moonSet, Type::sunTransit};
  // Midnight Sun 13 degrees high: no crossing at all.
  Session session(ZVObserver(Coordinate{80, 0}), TimeZone(), dateIn("GMT", 2026, 6, 21, 3));
  EXPECT_EQ(session->getCurrentSunEvent()->mjdRise(), kAlwaysAbove);
  EXPECT_EQ(session->mwDateThreshold(), dateIn("GMT", 2026, 6, 21));
  EXPECT_THAT(typesOfToday(*session), IsSubsetOf(possible));
  // 70 degrees north it sinks to 3 degrees, and golden hour has its limits.
  session->setCurrentPosition({70, 0}, false);
  EXPECT_EQ(session->getCurrentSunEvent()->mjdRise(), kAlwaysAbove);
  EXPECT_THAT(typesOfToday(*session), Contains(Type::goldenHourStart));
  possible.insert({Type::goldenHourStart, Type::goldenHourEnd});
  EXPECT_THAT(typesOfToday(*session), IsSubsetOf(possible));
  // The December Sun comes up to -3.4 degrees there: blue hour, but no rise.
  session->setCurrentDate(dateIn("GMT", 2026, 12, 21, 3));
  const SunEvent& winter = *session->getCurrentSunEvent();
  EXPECT_EQ(winter.mjdRise(), kAlwaysBelow);
  EXPECT_THAT(typesOfToday(*session), Contains(Type::blueHourEnd));
  EXPECT_THAT(typesOfToday(*session), Not(Contains(Type::sunRise)));
  EXPECT_EQ(session->mwDateThreshold().timeIntervalSinceReferenceDate(),
            winter.civilTwilight.startTimeInterval());
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
    EXPECT_EQ(event.hasPrincipalPhase(), c.phase == kFullMoon || c.phase == kNewMoon);
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
    for (const PtMoonPhaseWithDate& phase :
         phasesFromDate(startOfMonth(1990, month, cachedCalendar()))) {
      const bool isQuarter = phase.phase == kFirstQuarter || phase.phase == kLastQuarter;
      if (!isQuarter || phase.date.hour != 0 || phase.date.minutes > 10) continue;
      const Date midnight = dateWithStartDateTime(dateWithPtDateTime(phase.date), cachedCalendar());
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

// Full Moon on 2026-05-31 at 08:45 UT; it is May 30, 20:45 in Etc/GMT+12.
TEST_F(PlannerDayCycle, PhasesAreListedForTheLocalMonth) {
  const Date may = dateIn("Etc/GMT+12", 2026, 5, 31, 22);
  Session session(ZVObserver(kParis), zoneNamed("Etc/GMT+12"), may);
  ASSERT_NE(session->getPhaseForDay(30, 5), nullptr);
  EXPECT_EQ(session->getPhaseForDay(30, 5)->phase, kFullMoon);
  EXPECT_EQ(session->getPhaseForDay(31, 5), nullptr);
  session->setCurrentTimeZone(TimeZone());  // and now it is June there
  EXPECT_EQ(session->getPhaseForDay(31, 5), nullptr);
  session->freeMoonPhaseObjects();
  EXPECT_EQ(session->getPhaseForDay(8, 6), nullptr);
}

// A phase in the last seconds of a month belongs to its last day, and not to the first of
// the next, from wherever the session came there.
TEST_F(PlannerDayCycle, PhasesInTheLastSecondsOfAMonth) {
  int found = 0;
  for (int month = 0; month < 400 * 12; month += 2) {
    for (const PtMoonPhaseWithDate& phase :
         phasesFromDate(startOfMonth(1800, month, cachedCalendar()))) {
      // Seconds before a full hour of a month's last day, where some zone has its midnight.
      const int zone = 23 - phase.date.hour;
      const Date noon = dateIn("GMT", phase.date.year, phase.date.month, phase.date.day + 1, 12);
      if (phase.date.minutes < 59.5 || dayValue(noon, cachedCalendar()) != 1 || zone > 14) continue;
      const TimeZone local = zoneNamed("Etc/GMT-" + std::to_string(zone));
      Session session(ZVObserver(kParis), local, noon.dateByAddingTimeInterval(-86340));
      EXPECT_EQ(session->getCurrentMoonEvent()->phase, phase.phase);
      session->setCurrentDate(noon);
      EXPECT_FALSE(session->getCurrentMoonEvent()->hasPrincipalPhase());
      const Session fresh(ZVObserver(kParis), local, noon);
      EXPECT_EQ(stateOf(*session), stateOf(*fresh));
      ++found;
      session->setCurrentTimeZone(TimeZone());
    }
  }
  EXPECT_GT(found, 1);
}

}  // namespace
}  // namespace zenivo::testing
