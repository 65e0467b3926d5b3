#include "find/DateRange.h"

#include <gtest/gtest.h>

#include "app/settings/SettingsKeys.h"
#include "support/Times.h"

namespace zenivo {
namespace {

const Calendar parisCalendar(zoneNamed("Europe/Paris"));

Date at(std::int64_t year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  return parisCalendar.dateFromComponents({year, month, day, hour, minute, second});
}

TEST(DateRange, APeriodIncludesItsFirstDay) {
  using Type = DateRange::Type;
  struct {
    DateRange range;
    Date first, last;
    const char* name;
  } const cases[] = {
      {{1, Type::day}, at(2026, 1, 31, 17, 30), at(2026, 1, 31), "1 day"},
      {{2, Type::week}, at(2026, 1, 31, 17, 30), at(2026, 2, 13), "2 weeks"},
      {{1, Type::month}, at(2026, 1, 31, 17, 30), at(2026, 3, 2), "1 month"},  // "February 31"
      {{5, Type::year}, at(2024, 2, 29), at(2029, 2, 28), "5 years"},
      {{0, Type::custom}, at(2026, 1, 31, 17, 30), at(2026, 1, 30), "Custom"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.range.addToDate(c.first, parisCalendar), c.last) << c.name;
    EXPECT_EQ(c.range.stringValue(), c.name);
  }
}

TEST(DateRange, RowsGiveWholeDaysOfTheCalendar) {
  for (const std::int64_t row : {0, -1, 10, 4711}) {  // there is no such row: a month
    const DatePeriod month = periodForRow(row, at(2026, 3, 15, 12), parisCalendar);
    EXPECT_EQ(month.start, at(2026, 3, 15)) << row;
    EXPECT_EQ(month.end, at(2026, 4, 14, 23, 59, 59)) << row;
  }
  const Calendar auckland(zoneNamed("Pacific/Auckland"));  // where the 16th has begun
  EXPECT_EQ(periodForRow(1, at(2026, 3, 15, 12), auckland).start,
            auckland.dateFromComponents({2026, 3, 16, 0, 0, 0}));
}

TEST(DateRange, FiveYearsToTheMinuteAndAGoodPeriodKeepsItsRow) {
  const Date start = at(2026, 3, 15, 10, 30);
  UserDefaults userDefaults;
  EXPECT_FALSE(confirmDateRange(userDefaults, 6, start, start, parisCalendar));
  EXPECT_FALSE(confirmDateRange(userDefaults, 7, start, at(2031, 3, 15, 10, 30), parisCalendar));
  EXPECT_EQ(
      confirmDateRange(userDefaults, 9, start, at(2031, 3, 15, 10, 30, 1), parisCalendar)->message,
      "The period can span 5 years at most.");
  EXPECT_EQ(confirmDateRange(userDefaults, 9, at(2026, 3, 16), start, parisCalendar)->message,
            "The period ends before it begins.");
  EXPECT_EQ(userDefaults.integerForKey(settings::date_range_defaultRange), 7);
}

}  // namespace
}  // namespace zenivo
