#include "time/DateEphemeris.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

#include "support/Times.h"
#include "time/LocalDay.h"

namespace zenivo {
namespace {

class DateEphemeris : public testing::Test {
 protected:
  void TearDown() override { setCachedCalendarTimeZone(TimeZone::defaultTimeZone()); }
};

TEST_F(DateEphemeris, DatesFromMjdStandOnTheMinute) {
  const double mjd = getMjd({2024, 4, 8, 12, 34.0 + 40.0 / 60.0});
  EXPECT_EQ(dateFromModifiedJulianDay(mjd), utc(2024, 4, 8, 12, 35));
  EXPECT_NEAR(
      dateFromModifiedJulianDay(mjd, true).timeIntervalSinceDate(utc(2024, 4, 8, 12, 34, 40)), 0.0,
      1.0);
  EXPECT_EQ(mjdToTimeInterval(mjd), utc(2024, 4, 8, 12, 35).timeIntervalSinceReferenceDate());
  // A record may say 23:60; the calendar carries it.
  EXPECT_EQ(dateWithPtDateTime({2023, 12, 31, 23, 60.0}), utc(2024, 1, 1));
  EXPECT_EQ(dateWithPtDateTime({2023, 12, 31, 23, 59.6}), utc(2024, 1, 1));
}

TEST_F(DateEphemeris, MjdOfADateComesBackWithinASecond) {
  for (int minute = 0; minute < 200'000; minute += 7) {
    const Date date = utc(2024, 2, 28).dateByAddingTimeInterval(minute * 60.0 + 20.0);
    const double back =
        dateFromModifiedJulianDay(modifiedJulianDay(date), true).timeIntervalSinceDate(date);
    ASSERT_LE(std::abs(back), 1.0) << minute;
  }
  EXPECT_EQ(modifiedJulianDay(utc(2000, 1, 1, 12).dateByAddingTimeInterval(0.9)), 51544.5);
}

TEST_F(DateEphemeris, WhatIsNoMomentStaysNone) {
  for (const double mjd : {std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, -HUGE_VAL, 1e300}) {
    const Date date = dateFromModifiedJulianDay(mjd, true);
    EXPECT_TRUE(std::isnan(date.timeIntervalSinceReferenceDate())) << mjd;
    EXPECT_TRUE(std::isnan(mjdToTimeInterval(mjd))) << mjd;
    EXPECT_TRUE(std::isnan(modifiedJulianDay(date))) << mjd;
    EXPECT_TRUE(std::isnan(LocalDay::of(date, cachedCalendar()).mjdAt0)) << mjd;
    EXPECT_EQ(dayValue(date, cachedCalendar()), 0) << mjd;
  }
}

TEST_F(DateEphemeris, LocalDaysFollowTheObserversZone) {
  const Date date = utc(2026, 6, 30, 22, 30, 15);
  setCachedCalendarTimeZone(zoneNamed("Europe/Paris"));
  EXPECT_EQ(dateWithStartDateTime(date, cachedCalendar()), utc(2026, 6, 30, 22));
  EXPECT_EQ(dateWithNoonDateTime(date, cachedCalendar()), utc(2026, 7, 1, 10));
  EXPECT_EQ(dateWithEndDateTime(date, cachedCalendar()), utc(2026, 7, 1, 21, 59, 59));
  EXPECT_EQ(monthValue(date, cachedCalendar()), 7);
  EXPECT_EQ(hourValue(date, cachedCalendar()), 0);
  EXPECT_TRUE(isDateSameDayAsDate(date, utc(2026, 7, 1, 12), cachedCalendar()));
  setCachedCalendarTimeZone(zoneNamed("America/New_York"));
  EXPECT_EQ(monthValue(date, cachedCalendar()), 6);
  EXPECT_FALSE(isDateSameDayAsDate(date, utc(2026, 7, 1, 12), cachedCalendar()));
  EXPECT_EQ(firstDayOfYear(2026, cachedCalendar()), utc(2026, 1, 1, 5));
  EXPECT_EQ(yearValue(firstDayOfYear(1, cachedCalendar()), cachedCalendar()), 1);
}

TEST_F(DateEphemeris, AClockChangeKeepsTheWallClock) {
  setCachedCalendarTimeZone(zoneNamed("Europe/Paris"));
  const Date midnight = dateWithStartDateTime(utc(2026, 3, 29, 12), cachedCalendar());
  const Date next = dateByAddingNumberOfDays(midnight, 1, cachedCalendar());
  EXPECT_EQ(next.timeIntervalSinceDate(midnight), 23.0 * 3600.0);
  EXPECT_EQ(dateByAddingNumberOfDays(next, -1, cachedCalendar()), midnight);
  // 01:40 is followed by 03:00 on the clock.
  EXPECT_EQ(nextMainHour(utc(2026, 3, 29, 0, 40), cachedCalendar()), utc(2026, 3, 29, 1));
}

TEST_F(DateEphemeris, MainHours) {
  setCachedCalendarTimeZone(zoneNamed("Asia/Kolkata"));
  EXPECT_EQ(nextMainHour(utc(2026, 1, 1, 18, 12, 5), cachedCalendar()),
            utc(2026, 1, 1, 18, 30));  // over midnight
  EXPECT_EQ(previousMainHour(utc(2026, 1, 1, 18, 12, 5), cachedCalendar()),
            utc(2026, 1, 1, 17, 30, 5));
  EXPECT_EQ(timeAsFractionOfDay(utc(2026, 1, 1, 6, 30), cachedCalendar()), 0.5);
  // 13:18 in Kolkata; its reader divides the minutes by 24.
  EXPECT_EQ(floatHour(utc(2026, 1, 1, 7, 48), cachedCalendar()), 13.75F);
}

TEST_F(DateEphemeris, WeekdayAndMonthAreTheDevices) {
  TimeZone::setDefaultTimeZone(zoneNamed("Asia/Tokyo"));
  setCachedCalendarTimeZone(zoneNamed("America/New_York"));
  const Date date = utc(2024, 2, 29, 16);  // Friday March 1 in Tokyo
  EXPECT_EQ(weekday(date), 6);
  EXPECT_EQ(weekdayAbbreviation(date), "Fri");
  EXPECT_EQ(numberOfDaysInMonth(date), 31);
  EXPECT_EQ(weekdayAbbreviation(utc(2024, 3, 1, 15)), "Sat");
  TimeZone::setDefaultTimeZone(TimeZone::systemTimeZone());
}

TEST_F(DateEphemeris, BetweenIsStrictAndTiesGoToTheSecond) {
  const Date a = utc(2026, 1, 1), b = utc(2026, 1, 2), middle = utc(2026, 1, 1, 12);
  EXPECT_TRUE(dateIsBetween(middle, a, b));
  EXPECT_FALSE(dateIsBetween(a, a, b));
  EXPECT_FALSE(dateIsBetween(b, a, b));
  EXPECT_EQ(closestDateFromDate(a, b, middle), middle);
  EXPECT_EQ(closestDateFromDate(a, b, utc(2025, 1, 1)), a);
  EXPECT_EQ(closestDateFromDate(a, b, utc(2027, 1, 1)), b);
  EXPECT_EQ(closestDateFromDate(b, a, middle), a);  // bounds the wrong way round, a tie
}

TEST_F(DateEphemeris, ZoneLabels) {
  const auto label = [](const char* name, int year, int month) {
    return gmtOffsetStringValueForDate(zoneNamed(name), utc(year, month, 1));
  };
  EXPECT_EQ(label("GMT", 2026, 7), "GMT+0");
  EXPECT_EQ(label("Europe/Paris", 2026, 7), "GMT+2");
  EXPECT_EQ(label("America/New_York", 2026, 7), "GMT-4");
  EXPECT_EQ(label("Asia/Kolkata", 2026, 7), "GMT+5:30");
  EXPECT_EQ(label("America/St_Johns", 2026, 1), "GMT-3:-30");
  EXPECT_EQ(label("Africa/Monrovia", 1950, 1), "GMT0:-44");
}

TEST_F(DateEphemeris, HoursBetweenEvents) {
  setCachedCalendarTimeZone(zoneNamed("Europe/Paris"));
  const double evening = getMjd({2026, 6, 30, 21, 59});  // 23:59 on the clock
  for (const double end : {evening, kNotThisDay, kAlwaysAbove, kAlwaysBelow}) {
    EXPECT_EQ(hoursBetweenStartMjd(kAlwaysAbove, end, cachedCalendar()), 24.0F);
    EXPECT_EQ(hoursBetweenStartMjd(kAlwaysBelow, end, cachedCalendar()), 0.0F);
    EXPECT_EQ(hoursBetweenStartMjd(kNotThisDay, end, cachedCalendar()), 0.0F);
  }
  EXPECT_FLOAT_EQ(hoursBetweenStartMjd(evening - 0.25, evening, cachedCalendar()), 6.0F);
  EXPECT_NEAR(hoursBetweenStartMjd(evening - 0.25, kNotThisDay, cachedCalendar()),
              6.0 + 59.0 / 3600.0, 1e-4);
  EXPECT_NEAR(hoursBetweenStartMjd(evening + 40.0 / 86400.0, kAlwaysAbove, cachedCalendar()),
              19.0 / 3600.0, 1e-4);
}

// The planner sets the zone while searches in other threads read the calendar.
TEST_F(DateEphemeris, TheZoneMayChangeWhileOthersRead) {
  const Date date = utc(2026, 6, 30, 22, 30);
  const Date paris = utc(2026, 6, 30, 22), tokyo = utc(2026, 6, 30, 15);
  setCachedCalendarTimeZone(zoneNamed("Europe/Paris"));
  std::atomic<bool> done = false;
  std::atomic<int> wrong = 0;
  std::vector<std::jthread> readers;
  for (int i = 0; i < 3; ++i) {
    readers.emplace_back([&] {
      while (!done) {
        const Date start = dateWithStartDateTime(date, cachedCalendar());
        if (start != paris && start != tokyo) ++wrong;
        if (cachedCalendar().timeZone().name().empty()) ++wrong;
      }
    });
  }
  for (int i = 0; i < 2000; ++i) {
    setCachedCalendarTimeZone(zoneNamed(i % 2 == 0 ? "Asia/Tokyo" : "Europe/Paris"));
  }
  done = true;
  readers.clear();
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace zenivo
