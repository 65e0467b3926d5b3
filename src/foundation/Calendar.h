// Civil dates in a time zone.

#pragma once

#include <cstdint>

#include "foundation/Date.h"
#include "foundation/TimeZone.h"

namespace zenivo {

/// A civil date and time, or an amount of each unit to add.  Components out of
/// their range are carried (hour 24 is hour 0 of the next day).
struct DateComponents {
  std::int64_t year = 0;  ///< astronomical: the year before 1 is 0
  int month = 0;          ///< 1 to 12
  int day = 0;            ///< 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;

  friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

/// The units that a calendar counts in one another.
enum class CalendarUnit { day, weekday, month, year };

/// A range of whole units: `length` of them from `location` on.
struct UnitRange {
  int location = 0;
  int length = 0;
};

/// The calendar of civil use, Julian up to 1582-10-04 and Gregorian from
/// 1582-10-15 on, in a time zone that may be changed.
class Calendar {
 public:
  explicit Calendar(TimeZone zone = TimeZone::defaultTimeZone()) : zone_(std::move(zone)) {}

  const TimeZone& timeZone() const { return zone_; }
  void setTimeZone(const TimeZone& zone) { zone_ = zone; }

  /// The civil date and time of a moment; fractions of a second are dropped.  All 0 for
  /// what is no moment.
  DateComponents componentsFromDate(Date date) const;

  /// The moment of a civil date and time.  A time that the zone's clock skips is
  /// read with the offset before the gap (02:30 becomes 03:30); of a time that
  /// comes twice the first is taken.
  Date dateFromComponents(const DateComponents& components) const;

  /// Adds calendar units and keeps the wall-clock time.  A local day that the
  /// zone skipped whole is passed over in the direction of travel.
  Date dateByAddingComponents(const DateComponents& amount, Date date) const;

  /// Place of the date's `unit` within `larger`, from 1 on: the day in its month
  /// or year, the month in its year; the weekday (1 is Sunday) whatever `larger`.
  int ordinalityOfUnit(CalendarUnit unit, CalendarUnit larger, Date date) const;

  /// Range of `unit` within the `larger` unit that holds the date: days of its
  /// month or year, months of its year.
  UnitRange rangeOfUnit(CalendarUnit unit, CalendarUnit larger, Date date) const;

 private:
  TimeZone zone_;
};

}  // namespace zenivo
