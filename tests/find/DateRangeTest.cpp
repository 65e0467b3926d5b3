#include "find/DateRange.h"

#include <gtest/gtest.h>

#include "app/settings/SettingsKeys.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

class DateRangeTest : public testing::Test {
 protected:
  DateRangeTest() { setCachedCalendarTimeZone(TimeZone::timeZoneWithName("Europe/Paris").value()); }
  ~DateRangeTest() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }

  static Date at(std::int64_t year, int month, int day, int hour = 0, int minute = 0,
                 int second = 0) {
    return cachedCalendar().dateFromComponents({year, month, day, hour, minute, second});
  }
};

TEST_F(DateRangeTest, APeriodIncludesItsFirstDay) {
  using Type = DateRange::Type;
  struct Case {
    DateRange range;
    Date last;
  };
  for (const Case& c : {Case{{1, Type::day}, at(2026, 1, 31)},
                        {{1, Type::week}, at(2026, 2, 6)},
                        {{1, Type::month}, at(2026, 3, 2)},  // January 31 and a month
                        {{1, Type::year}, at(2027, 1, 30)},
                        {{0, Type::custom}, at(2026, 1, 30)}}) {
    EXPECT_EQ(c.range.addToDate(at(2026, 1, 31, 17, 30)), c.last) << c.range.stringValue();
  }
  EXPECT_EQ((DateRange{1, Type::year}.addToDate(at(2024, 2, 29))), at(2025, 2, 28));
}

TEST_F(DateRangeTest, Names) {
  EXPECT_EQ(kDateRanges[1].stringValue(), "1 day");
  EXPECT_EQ(kDateRanges[3].stringValue(), "2 weeks");
  EXPECT_EQ(kDateRanges[9].stringValue(), "5 years");
  EXPECT_EQ(kDateRanges[0].stringValue(), "Custom");
}

TEST_F(DateRangeTest, RowsGiveWholeDays) {
  const DatePeriod month = periodForRow(0, at(2026, 3, 15, 12));
  EXPECT_EQ(month.start, at(2026, 3, 15));
  EXPECT_EQ(month.end, at(2026, 4, 14, 23, 59, 59));
  for (const std::int64_t row : {-1, 10, 4711}) {
    EXPECT_EQ(periodForRow(row, at(2026, 3, 15)).end, month.end) << row;
  }
}

TEST_F(DateRangeTest, FiveYearsToTheMinute) {
  const Date start = at(2026, 3, 15, 10, 30);
  EXPECT_FALSE(validateDateRange(start, start));
  EXPECT_FALSE(validateDateRange(start, at(2031, 3, 15, 10, 30)));
  EXPECT_EQ(validateDateRange(start, at(2031, 3, 15, 10, 30, 1))->message,
            "The period can span 5 years at most.");
  EXPECT_EQ(validateDateRange(at(2026, 3, 16), start)->message,
            "The period ends before it begins.");
}

TEST_F(DateRangeTest, AGoodPeriodKeepsItsRow) {
  UserDefaults userDefaults;
  const Date start = at(2026, 3, 15);
  EXPECT_FALSE(confirmDateRange(userDefaults, 6, start, at(2026, 9, 14)));
  EXPECT_TRUE(confirmDateRange(userDefaults, 9, start, at(2026, 3, 14)));
  EXPECT_EQ(userDefaults.integerForKey(settings::date_range_defaultRange), 6);
}

}  // namespace
}  // namespace zenivo
