// Canned lengths of a search period, in the days of the calendar that is handed in.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// A number of days, weeks, months or years that begins on a date: the date is
/// its first day.
struct DateRange {
  enum class Type : std::int32_t { custom = 0, day, week, month, year };

  std::int32_t count = 0;
  Type type = Type::custom;

  /// "2 weeks"; of a custom range the name of that choice.
  std::string stringValue() const;
  /// The unit, in the number that `count` wants.
  std::string stringForDateRange() const;

  /// The last day of the period that begins on the date's local day, at 00:00.  Of
  /// a custom range, the day before the date.
  Date addToDate(Date date, const Calendar& calendar) const;
};

/// The ranges to choose from, and the row that is chosen where none was.
inline constexpr std::array<DateRange, 10> kDateRanges{{
    {0, DateRange::Type::custom},
    {1, DateRange::Type::day},
    {1, DateRange::Type::week},
    {2, DateRange::Type::week},
    {1, DateRange::Type::month},
    {3, DateRange::Type::month},
    {6, DateRange::Type::month},
    {1, DateRange::Type::year},
    {2, DateRange::Type::year},
    {5, DateRange::Type::year},
}};
inline constexpr std::size_t kDefaultDateRangeRow = 4;

/// A period of whole local days.
struct DatePeriod {
  Date start;  ///< 00:00:00
  Date end;    ///< 23:59:59
};

/// The whole days from one date to another.
DatePeriod wholeDays(Date first, Date last, const Calendar& calendar);

/// The period that a row of kDateRanges names, beginning on the date's local day.
/// The custom row, and any row there is none of, counts as the default row.
DatePeriod periodForRow(std::int64_t row, Date start, const Calendar& calendar);

/// What is wrong with a period, as localised texts.
struct DateRangeError {
  std::string title;
  std::string message;
};

/// Nullopt for a good period: its end is not before its start, and no later than
/// the same date and minute five calendar years on.
std::optional<DateRangeError> validateDateRange(Date start, Date end, const Calendar& calendar);

/// The user confirms a period that was chosen by a row: for a good one the row is kept in
/// the settings, as the default of the next choice.
std::optional<DateRangeError> confirmDateRange(UserDefaults& userDefaults, std::int64_t row,
                                               Date start, Date end, const Calendar& calendar);

}  // namespace zenivo
