#include "engine/MoonPhases.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

#include "time/DateEphemeris.h"
#include "time/LocalMonth.h"

namespace zenivo {
namespace {

// Meeus, Astronomical Algorithms (1998), examples 49.a and 49.b.  The mean phase
// of that edition differs: by 0.00001 d + 8e-9 k + 0.0000207 T^2 it comes later,
// which makes 0.000008 d and 0.000018 d here.  Printed to 0.00001 d.
TEST(MoonPhases, ExamplesOfMeeus) {
  EXPECT_NEAR(moonPhaseJulianEphemerisDate(-283.0), 2443192.65118 - 0.000008, 0.7e-5);
  EXPECT_NEAR(moonPhaseJulianEphemerisDate(544.75), 2467636.49186 - 0.000018, 0.7e-5);
}

// Universal Time, from the almanacs of the U.S. Naval Observatory.  Printed to
// the minute; the series is good for 20 s.
TEST(MoonPhases, PublishedPhases) {
  const std::pair<PtDateTime, std::int32_t> published[] = {
      {{2000, 1, 6, 18, 14}, kNewMoon},        {{2000, 1, 14, 13, 34}, kFirstQuarter},
      {{2000, 1, 28, 7, 57}, kLastQuarter},    {{2018, 1, 2, 2, 24}, kFullMoon},
      {{2018, 1, 17, 2, 17}, kNewMoon},        {{2018, 1, 31, 13, 27}, kFullMoon},
      {{2018, 3, 2, 0, 51}, kFullMoon},        {{2018, 3, 31, 12, 37}, kFullMoon},
      {{2024, 1, 11, 11, 57}, kNewMoon},       {{2024, 1, 25, 17, 54}, kFullMoon},
      {{2024, 2, 2, 23, 18}, kLastQuarter},    {{2024, 2, 16, 15, 1}, kFirstQuarter},
      {{2024, 3, 25, 7, 0}, kFullMoon},        {{2024, 4, 2, 3, 15}, kLastQuarter},
      {{2024, 4, 8, 18, 21}, kNewMoon},        {{2024, 4, 15, 19, 13}, kFirstQuarter},
      {{2024, 4, 23, 23, 49}, kFullMoon},      {{2024, 10, 2, 18, 49}, kNewMoon},
      {{2024, 10, 10, 18, 55}, kFirstQuarter}, {{2024, 10, 17, 11, 26}, kFullMoon},
  };
  for (const auto& [date, phase] : published) {
    // Started a day before, the list begins with the phase in question.
    PtDateTime start;
    setFromMjd(start, getMjd(date) - 1.0);
    const PtMoonPhaseWithDate first = phasesFromDate(start).at(0);
    EXPECT_EQ(first.phase, phase) << getMjd(date);
    EXPECT_NEAR(getMjd(first.date) - getDeltaT(date), getMjd(date), 1.0 / 1440.0);
  }
}

// Quarters follow one another in 6.5 to 8.3 days; no phase may be missing from
// the first 58 days wherever in history the list starts.
TEST(MoonPhases, ListsAreSortedCompleteAndNeverBeforeTheirStart) {
  std::mt19937_64 random(1969'07'20);
  std::uniform_real_distribution<double> mjds(getMjd({-4000, 1, 1, 0, 0}),
                                              getMjd({6000, 1, 1, 0, 0}));
  for (int i = 0; i < 1000; ++i) {
    PtDateTime start;
    setFromMjd(start, mjds(random));
    const std::vector<PtMoonPhaseWithDate> phases = phasesFromDate(start);
    ASSERT_TRUE(phases.size() >= 8 && phases.size() <= 12) << phases.size();
    ASSERT_GE(phases.front().date, start);
    ASSERT_LT(getMjd(phases.front().date) - getMjd(start), 8.5) << start.year;
    for (std::size_t n = 1; n < 8; ++n) {
      ASSERT_NEAR(getMjd(phases[n].date) - getMjd(phases[n - 1].date), 7.4, 1.1) << start.year;
      ASSERT_EQ(phases[n].phase, (phases[n - 1].phase + 1) % 4) << start.year;
    }
  }
}

TEST(MoonPhases, APhaseAtTheStartItselfIsListed) {
  const PtDateTime full = phasesFromDate({2026, 6, 1, 0, 0.0}).at(4).date;
  EXPECT_EQ(phasesFromDate(full).front().date, full);
  PtDateTime later = full;
  later.minutes += 0.001;
  EXPECT_GT(phasesFromDate(later).front().date, later);
}

// A phase in the last half minute of a day belongs to that day, in the search of the day
// as in the list of its month, and not to the next one with a time of the day before.
TEST(MoonPhases, OneDayForOneMoment) {
  const Calendar gmt{TimeZone()};
  int lastHalfMinutes = 0;
  for (int quarter = -4 * 3700; quarter < 4 * 3700; ++quarter) {
    PtMoonPhaseWithDate phase{.phase = (quarter % 4 + 4) % 4, .date = {}};
    setFromJd(phase.date, moonPhaseJulianEphemerisDate(quarter / 4.0));
    const PtDateTime& at = phase.date;
    if (at.hour < 23 || at.minutes < 59.5 || at.minutes >= 60.0) continue;
    ++lastHalfMinutes;
    const DateComponents day = localDayOfPhase(phase, gmt);
    EXPECT_EQ(day.day, at.day) << at.year;
    EXPECT_EQ(day.month, at.month) << at.year;
    const auto month = phasesFromDate(startOfMonth(at.year, at.month, gmt));
    const auto* found = phaseForDayOfMonth(month, at.day, at.month, gmt);
    ASSERT_NE(found, nullptr) << at.year;
    EXPECT_EQ(found->phase, phase.phase) << at.year;
  }
  EXPECT_GT(lastHalfMinutes, 3);
}

class LocalMonth : public testing::Test {
 protected:
  void TearDown() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }
};

// On the last evening of a month in New York it is the next month in Greenwich;
// on its first morning in Auckland it is still the month before.
TEST_F(LocalMonth, StartsAtTheObserversMidnight) {
  const struct {
    const char* zone;
    PtDateTime moment, start;
  } cases[] = {
      {"America/New_York", {2024, 5, 1, 2, 0}, {2024, 4, 1, 4, 0}},
      {"America/New_York", {2024, 12, 31, 12, 0}, {2024, 12, 1, 5, 0}},
      {"Pacific/Auckland", {2023, 12, 31, 13, 0}, {2023, 12, 31, 11, 0}},
      {"GMT", {2024, 2, 29, 23, 59}, {2024, 2, 1, 0, 0}},
  };
  for (const auto& c : cases) {
    setCachedCalendarTimeZone(TimeZone::timeZoneWithName(c.zone).value());
    EXPECT_EQ(startOfMonthOfDate(dateWithPtDateTime(c.moment), cachedCalendar()), c.start)
        << c.zone;
  }
}

}  // namespace
}  // namespace zenivo
