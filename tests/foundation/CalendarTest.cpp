#include "foundation/Calendar.h"

#include <gtest/gtest.h>

#include "support/Times.h"

namespace zenivo {
namespace {

DateComponents at(std::int64_t year, int month, int day, int hour = 0, int minute = 0) {
  return {.year = year, .month = month, .day = day, .hour = hour, .minute = minute};
}

TEST(Calendar, MomentsOfKnownCivilTimes) {
  const Calendar gmt(zoneNamed("GMT"));
  EXPECT_EQ(gmt.dateFromComponents(at(2001, 1, 1)), Date());
  // Paris kept UT+0:09:21 until 1911, Cairo has summer time again since 2023, and
  // summer time goes on past 2037 by the rule at the end of the zone's file.
  for (const auto& [name, year, seconds] : {std::tuple{"Europe/Paris", 1900, 561},
                                            {"Africa/Cairo", 2026, 3 * 3600},
                                            {"America/New_York", 2150, -4 * 3600}}) {
    const Date july = gmt.dateFromComponents(at(year, 7, 1));
    EXPECT_EQ(zoneNamed(name).secondsFromGMTForDate(july), seconds) << name;
  }
}

TEST(Calendar, ClockChanges) {
  const Calendar paris(zoneNamed("Europe/Paris"));
  // 2026-03-29 has 23 hours, 2026-10-25 has 25.
  for (const auto& [month, day, hours] : {std::tuple{3, 29, 23}, {10, 25, 25}, {6, 1, 24}}) {
    const Date start = paris.dateFromComponents(at(2026, month, day));
    const Date next = paris.dateByAddingComponents({.day = 1}, start);
    EXPECT_EQ(next.timeIntervalSinceDate(start), hours * 3600) << month;
    EXPECT_EQ(paris.componentsFromDate(next), at(2026, month, day + 1));
  }
  EXPECT_EQ(paris.componentsFromDate(paris.dateFromComponents(at(2026, 3, 29, 2, 30))),
            at(2026, 3, 29, 3, 30));
  const Date first = paris.dateFromComponents(at(2026, 10, 25, 2, 30));
  EXPECT_EQ(paris.componentsFromDate(first.dateByAddingTimeInterval(3600)),
            paris.componentsFromDate(first));
}

TEST(Calendar, ADayWithoutMidnightStartsAfterTheGap) {
  // Cairo's clocks went from 24:00 of 2026-04-23 to 01:00.
  const Calendar cairo(zoneNamed("Africa/Cairo"));
  EXPECT_EQ(cairo.componentsFromDate(cairo.dateFromComponents(at(2026, 4, 24))),
            at(2026, 4, 24, 1));
  const Date after = cairo.dateFromComponents(at(2026, 4, 25));
  EXPECT_EQ(cairo.componentsFromDate(cairo.dateByAddingComponents({.day = -1}, after)),
            at(2026, 4, 24, 1));
}

TEST(Calendar, ASkippedDayIsPassedOverBothWays) {
  // Samoa went from December 29 straight to December 31, 2011.
  const Calendar apia(zoneNamed("Pacific/Apia"));
  const Date before = apia.dateFromComponents(at(2011, 12, 29));
  const Date after = apia.dateByAddingComponents({.day = 1}, before);
  EXPECT_EQ(apia.componentsFromDate(after), at(2011, 12, 31));
  EXPECT_EQ(apia.dateByAddingComponents({.day = -1}, after), before);
}

TEST(Calendar, ReformOf1582) {
  const Calendar gmt(zoneNamed("GMT"));
  const Date last = gmt.dateFromComponents(at(1582, 10, 4));
  const Date next = gmt.dateByAddingComponents({.day = 1}, last);
  EXPECT_EQ(gmt.componentsFromDate(next), at(1582, 10, 15));
  // Every Julian century was a leap year.
  const Date february = gmt.dateFromComponents(at(1500, 2, 10));
  EXPECT_EQ(gmt.rangeOfUnit(CalendarUnit::day, CalendarUnit::month, february).length, 29);
  for (const std::int64_t year : {-4712, -1, 0, 1, 333, 1000, 1582}) {
    EXPECT_EQ(gmt.componentsFromDate(gmt.dateFromComponents(at(year, 2, 28, 23, 59))),
              at(year, 2, 28, 23, 59));
  }
}

TEST(Calendar, MonthsAndWeekdays) {
  const Calendar gmt(zoneNamed("GMT"));
  const auto date = [&](std::int64_t y, int m, int d) {
    return gmt.dateFromComponents(at(y, m, d));
  };
  // 2000-01-01 was a Saturday.
  EXPECT_EQ(gmt.ordinalityOfUnit(CalendarUnit::weekday, CalendarUnit::month, date(2000, 1, 1)), 7);
  EXPECT_EQ(gmt.ordinalityOfUnit(CalendarUnit::weekday, CalendarUnit::month, date(2000, 1, 2)), 1);
  EXPECT_EQ(gmt.ordinalityOfUnit(CalendarUnit::day, CalendarUnit::year, date(2024, 12, 31)), 366);
  EXPECT_EQ(gmt.componentsFromDate(gmt.dateByAddingComponents({.month = 1}, date(2026, 1, 31))),
            at(2026, 2, 28));
  EXPECT_EQ(gmt.componentsFromDate(gmt.dateByAddingComponents({.month = -1}, date(2026, 1, 31))),
            at(2025, 12, 31));
  EXPECT_EQ(gmt.componentsFromDate(gmt.dateFromComponents(at(2026, 12, 31, 24))), at(2027, 1, 1));
}

TEST(TimeZone, OnlyNamesOfZonesAreLookedUp) {
  for (const char* name : {"", "Europe/Atlantis", "/etc/localtime", "../../etc/passwd",
                           "file:/usr/share/zoneinfo/UTC", "Europe"}) {
    EXPECT_FALSE(TimeZone::timeZoneWithName(name)) << name;
  }
  EXPECT_GT(TimeZone::knownTimeZoneNames().size(), 500u);
  for (const std::string& name : TimeZone::knownTimeZoneNames()) {
    EXPECT_TRUE(TimeZone::timeZoneWithName(name)) << name;
  }
}

}  // namespace
}  // namespace zenivo
