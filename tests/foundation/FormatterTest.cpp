#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Calendar.h"
#include "foundation/DateFormatter.h"
#include "foundation/NumberFormatter.h"
#include "support/Times.h"

namespace zenivo {
namespace {

// Of the decimal that is meant: the double 1.005 is 1.00499999999999989, 2.675 is below, too.
TEST(NumberFormatter, RoundsHalvesOfTheDecimalAwayFromZero) {
  const struct {
    double number;
    int minimum, maximum;
    const char* text;
  } cases[] = {{2.5, 0, 0, "3"},           {-2.5, 0, 0, "-3"},    {3.5, 0, 0, "4"},
               {0.125, 0, 2, "0.13"},      {1.005, 0, 2, "1.01"}, {2.675, 2, 2, "2.68"},
               {1.45, 1, 1, "1.5"},        {0.285, 2, 2, "0.29"}, {2.4999999, 0, 0, "2"},
               {-0.4, 0, 0, "0"},          {-0.0, 1, 1, "0.0"},   {-0.05, 1, 1, "-0.1"},
               {-0.04, 1, 1, "0.0"},       {12, 0, 2, "12"},      {12, 1, 2, "12.0"},
               {12.3, 3, 1, "12.300"},     {0.1, 0, 20, "0.1"},   {HUGE_VAL, 0, 2, "∞"},
               {std::nan(""), 0, 2, "NaN"}};
  for (const auto& [number, minimum, maximum, text] : cases) {
    const NumberFormatter formatter{minimum, maximum};
    EXPECT_EQ(formatter.stringFromNumber(number), text) << number;
  }
  EXPECT_EQ(NumberFormatter{}.stringFromNumber(1e21), "1000000000000000000000");
  const NumberFormatter grouping{.usesGroupingSeparator = true};
  EXPECT_EQ(grouping.stringFromNumber(-1234567.5), "-1,234,568");
}

TEST(NumberFormatter, ReadsWholeTextsOnly) {
  const NumberFormatter plain{};
  const NumberFormatter grouping{.usesGroupingSeparator = true};
  EXPECT_EQ(plain.numberFromString("46.5587"), 46.5587);
  EXPECT_EQ(plain.numberFromString("-0.1"), -0.1);
  EXPECT_EQ(grouping.numberFromString("1,234.5"), 1234.5);
  for (const char* text : {"", "12 m", "1,5", "1.2.3", "--1", "twelve", "\xFF"}) {
    EXPECT_EQ(plain.numberFromString(text), std::nullopt) << text;
  }
}

TEST(DateFormatter, DaysOfClockChanges) {
  const DateFormatter paris("%Y-%m-%d %H:%M:%S %Z %Ez", zoneNamed("Europe/Paris"));
  const struct {
    Date date;
    const char* text;
  } cases[] = {
      {utc(2026, 3, 29, 0, 59, 59), "2026-03-29 01:59:59 CET +01:00"},
      {utc(2026, 3, 29, 1), "2026-03-29 03:00:00 CEST +02:00"},
      {utc(2026, 10, 25, 0, 30), "2026-10-25 02:30:00 CEST +02:00"},
      {utc(2026, 10, 25, 1, 30), "2026-10-25 02:30:00 CET +01:00"},
      {utc(2026, 12, 31, 23), "2027-01-01 00:00:00 CET +01:00"},
  };
  for (const auto& [date, text] : cases) EXPECT_EQ(paris.stringFromDate(date), text);
}

TEST(DateFormatter, NamesAndDaysBeforeTheReform) {
  const DateFormatter gmt("%a %e %B %Y, %b %d %I:%M %p 100%% %%Y", zoneNamed("GMT"));
  EXPECT_EQ(gmt.stringFromDate(utc(2026, 8, 2, 17, 5)),
            "Sun  2 August 2026, Aug 02 05:05 PM 100% %Y");
  // The day before Friday, October 15, 1582 was Thursday, October 4; the Battle of
  // Hastings was fought on Saturday, October 14, 1066; Julian 1500 was a leap year.
  const DateFormatter day("%A %E4Y-%m-%d", zoneNamed("GMT"));
  EXPECT_EQ(day.stringFromDate(utc(1582, 10, 15)), "Friday 1582-10-15");
  EXPECT_EQ(day.stringFromDate(utc(1582, 10, 4, 23, 59)), "Thursday 1582-10-04");
  EXPECT_EQ(day.stringFromDate(utc(1066, 10, 14)), "Saturday 1066-10-14");
  EXPECT_EQ(day.stringFromDate(utc(1500, 2, 29)), "Saturday 1500-02-29");
  EXPECT_EQ(DateFormatter("%E4Y", zoneNamed("GMT")).stringFromDate(utc(-4, 7, 1)), "-0004");
}

TEST(DateFormatter, Iso8601TakesTheNearestSecond) {
  const Date date = utc(2026, 6, 21, 3, 46, 59);
  EXPECT_EQ(iso8601String(date, zoneNamed("Europe/Paris")), "2026-06-21T05:46:59+02:00");
  EXPECT_EQ(iso8601String(date.dateByAddingTimeInterval(0.5), zoneNamed("Europe/Paris")),
            "2026-06-21T05:47:00+02:00");
  EXPECT_EQ(iso8601String(date, zoneNamed("America/St_Johns")), "2026-06-21T01:16:59-02:30");
}

}  // namespace
}  // namespace zenivo
