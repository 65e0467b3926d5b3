#include "commands/events/PeriodOptions.h"

#include <fmt/format.h>

#include <charconv>

#include "input/InputError.h"
#include "input/MomentParser.h"

namespace zenivo::cli {
namespace {

DateRange::Type typeOfUnit(char unit) {
  switch (unit) {
    case 'd':
      return DateRange::Type::day;
    case 'w':
      return DateRange::Type::week;
    case 'm':
      return DateRange::Type::month;
    case 'y':
      return DateRange::Type::year;
    default:
      return DateRange::Type::custom;
  }
}

void expectGood(const DatePeriod& period, const Calendar& calendar) {
  const auto error = validateDateRange(period.start, period.end, calendar);
  if (!error) return;
  std::string message = error->message;
  if (message.ends_with('.')) message.pop_back();
  throw InputError(fmt::format("{}: {}", error->title, message));
}

}  // namespace

DateRange parseRange(std::string_view text) {
  constexpr std::int32_t kMost = 9999;
  DateRange range;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, range.count);
  if (error == std::errc() && end - rest == 1) range.type = typeOfUnit(*rest);
  if (range.type == DateRange::Type::custom || range.count < 1 || range.count > kMost) {
    throw InputError(
        fmt::format("--range {}: write it as in 1d, 2w, 6m or 1y (days, weeks, months, years)",
                    inQuotes(text)));
  }
  return range;
}

void PeriodOptions::addTo(CLI::App& command) {
  command.add_option("--from", from_, "First day (default: today)")->type_name("DATE");
  CLI::Option* to = command.add_option("--to", to_, "Last day")->type_name("DATE");
  command
      .add_option("--range", range_,
                  "Length of the period in place of --to: 1d, 2w, 6m, 1y (default: 1m)")
      ->type_name("RANGE")
      ->excludes(to);
}

DatePeriod PeriodOptions::resolve(const TimeZone& zone) const {
  const Calendar calendar(zone);
  const auto dateOf = [&](const std::string& text) {
    return calendar.dateFromComponents(parseDay(text, zone, Date::now()));
  };
  const Date first = dateOf(from_);
  const DateRange range = range_.empty() ? kDateRanges[kDefaultDateRangeRow] : parseRange(range_);
  const DatePeriod period =
      wholeDays(first, to_.empty() ? range.addToDate(first, calendar) : dateOf(to_), calendar);
  expectGood(period, calendar);
  return period;
}

}  // namespace zenivo::cli
