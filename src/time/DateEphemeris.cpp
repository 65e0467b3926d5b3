#include "time/DateEphemeris.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <mutex>
#include <string_view>

#include "foundation/LocalizedString.h"

namespace zenivo {
namespace {

using CalendarPointer = std::shared_ptr<const Calendar>;

/// The one shared calendar: a pointer that is swapped whole, so that readers
/// pay for a lock and a count but never copy the zone's name.
class SharedCalendar {
 public:
  CalendarPointer get() const {
    const std::lock_guard lock(mutex_);
    return calendar_;
  }

  void setTimeZone(const TimeZone& zone) {
    CalendarPointer calendar = std::make_shared<const Calendar>(zone);
    const std::lock_guard lock(mutex_);
    calendar_.swap(calendar);
  }

 private:
  mutable std::mutex mutex_;
  CalendarPointer calendar_ = std::make_shared<const Calendar>();
};

SharedCalendar& sharedCalendar() {
  static SharedCalendar calendar;
  return calendar;
}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

bool isMoment(Date date) {
  return std::isfinite(date.timeIntervalSinceReferenceDate());
}

Date atTimeOfLocalDay(Date date, const Calendar& calendar, int hour, int minute, int second) {
  if (!isMoment(date)) return Date::withTimeIntervalSinceReferenceDate(kNaN);
  DateComponents c = calendar.componentsFromDate(date);
  c.hour = hour;
  c.minute = minute;
  c.second = second;
  return calendar.dateFromComponents(c);
}

}  // namespace

Calendar cachedCalendar() {
  return *sharedCalendar().get();
}

void setCachedCalendarTimeZone(const TimeZone& zone) {
  sharedCalendar().setTimeZone(zone);
}

const Calendar& gmtCachedCalendar() {
  static const Calendar calendar{TimeZone()};
  return calendar;
}

Date dateWithPtDateTime(const PtDateTime& record, bool withSeconds) {
  if (!std::isfinite(record.minutes)) return Date::withTimeIntervalSinceReferenceDate(kNaN);
  DateComponents c{
      .year = record.year, .month = record.month, .day = record.day, .hour = record.hour};
  if (withSeconds) {
    c.minute = static_cast<int>(record.minutes);
    c.second = static_cast<int>((record.minutes - c.minute) * 60.0);
  } else {
    c.minute = static_cast<int>(std::floor(record.minutes + 0.5));
  }
  return gmtCachedCalendar().dateFromComponents(c);
}

PtDateTime ptDateTimeForDate(Date date) {
  if (!isMoment(date)) return {.minutes = kNaN};
  const DateComponents c = gmtCachedCalendar().componentsFromDate(date);
  return {.year = static_cast<std::int32_t>(c.year),
          .month = c.month,
          .day = c.day,
          .hour = c.hour,
          .minutes = c.minute + c.second / 60.0};
}

Date dateFromModifiedJulianDay(double mjd, bool withSeconds) {
  PtDateTime record;
  setFromMjd(record, mjd);
  return dateWithPtDateTime(record, withSeconds);
}

Date dateOfMjd(double mjd) {
  constexpr double kMjdOf1970 = 40587;
  return Date::withTimeIntervalSince1970((mjd - kMjdOf1970) * kSecondsPerDay);
}

double modifiedJulianDay(Date date) {
  return getMjd(ptDateTimeForDate(date));
}

double mjdToTimeInterval(double mjd) {
  return dateFromModifiedJulianDay(mjd).timeIntervalSinceReferenceDate();
}

Date dateWithStartDateTime(Date date, const Calendar& calendar) {
  return atTimeOfLocalDay(date, calendar, 0, 0, 0);
}

Date dateWithNoonDateTime(Date date, const Calendar& calendar) {
  return atTimeOfLocalDay(date, calendar, 12, 0, 0);
}

Date dateWithEndDateTime(Date date, const Calendar& calendar) {
  return atTimeOfLocalDay(date, calendar, 23, 59, 59);
}

Date dateByAddingNumberOfDays(Date date, int days, const Calendar& calendar) {
  return isMoment(date) ? calendar.dateByAddingComponents({.day = days}, date) : date;
}

Date firstDayOfYear(std::int64_t year, const Calendar& calendar) {
  return dateWithStartDateTime(
      calendar.dateFromComponents({.year = year, .month = 1, .day = 1, .hour = 12}), calendar);
}

Date nextMainHour(Date date, const Calendar& calendar) {
  DateComponents c = calendar.componentsFromDate(date);
  ++c.hour;
  c.minute = 0;
  c.second = 0;
  return calendar.dateFromComponents(c);
}

Date previousMainHour(Date date, const Calendar& calendar) {
  DateComponents c = calendar.componentsFromDate(date);
  c.minute = 0;
  return calendar.dateFromComponents(c);
}

bool isDateSameDayAsDate(Date date, Date other, const Calendar& calendar) {
  const DateComponents a = calendar.componentsFromDate(date);
  const DateComponents b = calendar.componentsFromDate(other);
  return a.day == b.day && a.month == b.month && a.year == b.year;
}

std::int64_t yearValue(Date date, const Calendar& calendar) {
  return calendar.componentsFromDate(date).year;
}

int monthValue(Date date, const Calendar& calendar) {
  return calendar.componentsFromDate(date).month;
}

int dayValue(Date date, const Calendar& calendar) {
  return calendar.componentsFromDate(date).day;
}

int hourValue(Date date, const Calendar& calendar) {
  return calendar.componentsFromDate(date).hour;
}

int minuteValue(Date date, const Calendar& calendar) {
  return calendar.componentsFromDate(date).minute;
}

float floatHour(Date date, const Calendar& calendar) {
  const DateComponents c = calendar.componentsFromDate(date);
  return static_cast<float>(c.hour) + static_cast<float>(c.minute) / 24.0F;
}

double timeAsFractionOfDay(Date date, const Calendar& calendar) {
  const DateComponents c = calendar.componentsFromDate(date);
  return (c.hour + c.minute / 60.0 + c.second / 3600.0) / 24.0;
}

int weekday(Date date) {
  return Calendar().ordinalityOfUnit(CalendarUnit::weekday, CalendarUnit::month, date);
}

int numberOfDaysInMonth(Date date) {
  return Calendar().rangeOfUnit(CalendarUnit::day, CalendarUnit::month, date).length;
}

std::string weekdayAbbreviation(Date date) {
  constexpr std::array<std::string_view, 7> kKeys{
      "week_day_abbr_su", "week_day_abbr_mo", "week_day_abbr_tu", "week_day_abbr_we",
      "week_day_abbr_th", "week_day_abbr_fr", "week_day_abbr_sa"};
  return localizedString(kKeys[static_cast<std::size_t>(weekday(date) - 1)], "Common");
}

bool dateIsBetween(Date date, Date first, Date second) {
  return date > first && date < second;
}

Date closestDateFromDate(Date first, Date second, Date ofDate) {
  if (dateIsBetween(ofDate, first, second)) return ofDate;
  const double toFirst = std::abs(ofDate.timeIntervalSinceDate(first));
  const double toSecond = std::abs(ofDate.timeIntervalSinceDate(second));
  return toFirst < toSecond ? first : second;
}

std::string gmtOffsetStringValueForDate(const TimeZone& zone, Date date) {
  const int offset = zone.secondsFromGMTForDate(date);
  const int hours = offset / 3600;
  const int minutes = offset % 3600 / 60;
  const char* sign = offset >= 0 ? "+" : "";
  return minutes == 0 ? fmt::format("GMT{}{}", sign, hours)
                      : fmt::format("GMT{}{}:{:02d}", sign, hours, minutes);
}

float hoursBetweenStartMjd(double start, double andEndMjd, const Calendar& calendar) {
  if (start == kAlwaysAbove) return 24.0F;
  if (start == kAlwaysBelow || start == kNotThisDay) return 0.0F;
  double end = andEndMjd;
  if (end == kAlwaysAbove || end == kNotThisDay) {
    // To the second: a start at 23:59:40 must not round into the next day.
    end = modifiedJulianDay(dateWithEndDateTime(dateFromModifiedJulianDay(start, true), calendar));
  }
  return static_cast<float>((end - start) * 24.0);
}

}  // namespace zenivo
