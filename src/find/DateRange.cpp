#include "find/DateRange.h"

#include <fmt/format.h>

#include "app/settings/SettingsKeys.h"
#include "foundation/LocalizedString.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr std::string_view kTable = "Ephemeris";
constexpr int kLongestYears = 5;

}  // namespace

std::string DateRange::stringForDateRange() const {
  const bool one = count == 1;
  const auto text = [one](std::string_view singular, std::string_view plural) {
    return localizedString(one ? singular : plural, kTable);
  };
  switch (type) {
    case Type::day:
      return text("date_range_type_day", "date_range_type_days");
    case Type::week:
      return text("date_range_type_week", "date_range_type_weeks");
    case Type::month:
      return text("date_range_type_month", "date_range_type_months");
    default:
      return text("date_range_type_year", "date_range_type_years");
  }
}

std::string DateRange::stringValue() const {
  if (type == Type::custom) return localizedString("date_range_type_custom", kTable);
  return fmt::format("{} {}", count, stringForDateRange());
}

Date DateRange::addToDate(Date date, const Calendar& calendar) const {
  DateComponents day = calendar.componentsFromDate(date);
  day.hour = day.minute = day.second = 0;
  switch (type) {
    case Type::custom:
      break;
    case Type::day:
      day.day += count;
      break;
    case Type::week:
      day.day += 7 * count;
      break;
    case Type::month:
      day.month += count;
      break;
    case Type::year:
      day.year += count;
      break;
  }
  day.day -= 1;
  return calendar.dateFromComponents(day);
}

DatePeriod wholeDays(Date first, Date last, const Calendar& calendar) {
  return {dateWithStartDateTime(first, calendar), dateWithEndDateTime(last, calendar)};
}

DatePeriod periodForRow(std::int64_t row, Date start, const Calendar& calendar) {
  const bool canned = row > 0 && row < static_cast<std::int64_t>(kDateRanges.size());
  const DateRange& range =
      kDateRanges[canned ? static_cast<std::size_t>(row) : kDefaultDateRangeRow];
  return wholeDays(start, range.addToDate(start, calendar), calendar);
}

std::optional<DateRangeError> validateDateRange(Date start, Date end, const Calendar& calendar) {
  const auto error = [](std::string message) {
    return DateRangeError{localizedString("date_range_error_title", kTable), std::move(message)};
  };
  if (start > end) return error(localizedString("date_range_order_error_message", kTable));
  DateComponents limit = calendar.componentsFromDate(start);
  limit.year += kLongestYears;
  limit.second = 0;
  if (end > calendar.dateFromComponents(limit)) {
    const std::string message = localizedString("date_range_too_large_message", kTable);
    return error(fmt::format(fmt::runtime(message), fmt::to_string(kLongestYears)));
  }
  return std::nullopt;
}

std::optional<DateRangeError> confirmDateRange(UserDefaults& userDefaults, std::int64_t row,
                                               Date start, Date end, const Calendar& calendar) {
  auto error = validateDateRange(start, end, calendar);
  if (!error) userDefaults.setInteger(row, settings::date_range_defaultRange);
  return error;
}

}  // namespace zenivo
