#include "foundation/Calendar.h"

#include <cctz/civil_time.h>
#include <cctz/time_zone.h>

#include <algorithm>
#include <chrono>
#include <cmath>

namespace zenivo {
namespace {

using Seconds = cctz::time_point<cctz::seconds>;

// cctz counts proleptic Gregorian days.  Dates before the reform are given the
// names they bore, those of the Julian calendar; day numbers count from
// 1970-01-01 in both.
constexpr cctz::civil_day kFirstGregorianDay(1582, 10, 15);

constexpr std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
  return a / b - (a % b < 0 ? 1 : 0);
}

/// Day number of a Julian calendar date, the year counted from March.
constexpr std::int64_t dayNumberFromJulian(std::int64_t year, std::int64_t month,
                                           std::int64_t day) {
  const std::int64_t months = year * 12 + month - 3;  // from March of the year 0
  const std::int64_t y = floorDivide(months, 12);
  const std::int64_t m = months - y * 12;
  return 365 * y + floorDivide(y, 4) + (153 * m + 2) / 5 + day - 719471;
}
static_assert(dayNumberFromJulian(1582, 10, 5) == kFirstGregorianDay - cctz::civil_day(1970, 1, 1));

DateComponents julianFromDayNumber(std::int64_t number) {
  const std::int64_t days = number + 719470;  // from March 1 of the year 0
  const std::int64_t y = floorDivide(4 * days + 3, 1461);
  const std::int64_t ofYear = days - 365 * y - floorDivide(y, 4);
  const std::int64_t m = (5 * ofYear + 2) / 153;
  DateComponents date;
  date.year = y + (m >= 10 ? 1 : 0);
  date.month = static_cast<int>(m < 10 ? m + 3 : m - 9);
  date.day = static_cast<int>(ofYear - (153 * m + 2) / 5 + 1);
  return date;
}

/// Proleptic Gregorian time of components that may be out of range.
cctz::civil_second civilSecond(const DateComponents& c) {
  const cctz::civil_month month(c.year, c.month);
  const cctz::civil_day gregorian = cctz::civil_day(month) + (c.day - 1);
  cctz::civil_day day = gregorian;
  if (gregorian < kFirstGregorianDay) {
    day = cctz::civil_day(1970, 1, 1) + dayNumberFromJulian(month.year(), month.month(), c.day);
    day = std::min(day, kFirstGregorianDay);  // the ten days that never were
  }
  return cctz::civil_second(day) + std::int64_t{c.hour} * 3600 + std::int64_t{c.minute} * 60 +
         c.second;
}

DateComponents componentsOf(const cctz::civil_second& time) {
  const cctz::civil_day day(time);
  DateComponents c;
  if (day < kFirstGregorianDay) {
    c = julianFromDayNumber(day - cctz::civil_day(1970, 1, 1));
  } else {
    c.year = day.year();
    c.month = day.month();
    c.day = day.day();
  }
  c.hour = time.hour();
  c.minute = time.minute();
  c.second = time.second();
  return c;
}

Date dateOf(Seconds second) {
  return Date::withTimeIntervalSince1970(static_cast<double>(second.time_since_epoch().count()));
}

int daysInMonth(std::int64_t year, int month) {
  if (month == 10 && year == 1582) return 31;  // its last day is still called the 31st
  const cctz::civil_day first(civilSecond({.year = year, .month = month, .day = 1}));
  const cctz::civil_day next(civilSecond({.year = year, .month = month + 1, .day = 1}));
  return static_cast<int>(next - first);
}

int dayOfYear(const DateComponents& c) {
  const cctz::civil_day first(civilSecond({.year = c.year, .month = 1, .day = 1}));
  const cctz::civil_day day(civilSecond({.year = c.year, .month = c.month, .day = c.day}));
  return static_cast<int>(day - first) + 1;
}

}  // namespace

DateComponents Calendar::componentsFromDate(Date date) const {
  if (!std::isfinite(date.timeIntervalSince1970())) return {};
  const Seconds second(
      cctz::seconds(static_cast<std::int64_t>(std::floor(date.timeIntervalSince1970()))));
  return componentsOf(zone_.rules().lookup(second).cs);
}

Date Calendar::dateFromComponents(const DateComponents& components) const {
  return dateOf(zone_.rules().lookup(civilSecond(components)).pre);
}

Date Calendar::dateByAddingComponents(const DateComponents& amount, Date date) const {
  const double fraction = date.timeIntervalSince1970() - std::floor(date.timeIntervalSince1970());
  DateComponents c = componentsFromDate(date);
  c.year += amount.year;
  c.month += amount.month;
  if (amount.year != 0 || amount.month != 0) {
    // January 31 plus a month is the last day of February.
    const DateComponents first =
        componentsOf(civilSecond({.year = c.year, .month = c.month, .day = 1}));
    c.year = first.year;
    c.month = first.month;
    c.day = std::min(c.day, daysInMonth(c.year, c.month));
  }
  const cctz::civil_second wanted = civilSecond(c) + std::int64_t{amount.day} * 86400 +
                                    std::int64_t{amount.hour} * 3600 +
                                    std::int64_t{amount.minute} * 60 + amount.second;
  const cctz::time_zone::civil_lookup found = zone_.rules().lookup(wanted);
  const bool backward = wanted < civilSecond(componentsFromDate(date));
  const bool dayExists =
      cctz::civil_day(zone_.rules().lookup(found.pre).cs) == cctz::civil_day(wanted);
  return dateOf(!dayExists && backward ? found.post : found.pre).dateByAddingTimeInterval(fraction);
}

int Calendar::ordinalityOfUnit(CalendarUnit unit, CalendarUnit larger, Date date) const {
  const DateComponents c = componentsFromDate(date);
  switch (unit) {
    case CalendarUnit::weekday: {
      const cctz::civil_day day(civilSecond(c));
      return (static_cast<int>(cctz::get_weekday(day)) + 1) % 7 + 1;
    }
    case CalendarUnit::day:
      return larger == CalendarUnit::year ? dayOfYear(c) : c.day;
    case CalendarUnit::month:
      return c.month;
    case CalendarUnit::year:
      return static_cast<int>(c.year);
  }
  return 0;
}

UnitRange Calendar::rangeOfUnit(CalendarUnit unit, CalendarUnit larger, Date date) const {
  const DateComponents c = componentsFromDate(date);
  if (unit == CalendarUnit::month) return {1, 12};
  if (unit == CalendarUnit::weekday) return {1, 7};
  if (larger == CalendarUnit::month) return {1, daysInMonth(c.year, c.month)};
  return {1, dayOfYear({.year = c.year, .month = 12, .day = 31})};
}

}  // namespace zenivo
