#include "foundation/DateFormatter.h"

#include <cctz/civil_time.h>
#include <cctz/time_zone.h>
#include <fmt/format.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <optional>
#include <utility>

#include "foundation/Calendar.h"

namespace zenivo {
namespace {

using Seconds = cctz::time_point<cctz::seconds>;

std::string fourDigitYear(std::int64_t year) {
  return fmt::format("{:0{}}", year, year < 0 ? 5 : 4);
}

std::string monthName(const char* field, int month) {
  const Seconds firstDay = cctz::convert(cctz::civil_second(2000, month, 1), cctz::utc_time_zone());
  return cctz::format(field, firstDay, cctz::utc_time_zone());
}

/// The text of a field of the calendar day at the head of `rest`, which moves
/// past it; nullopt for any other character or field.  cctz would name days
/// before the reform of 1582 by the Gregorian calendar.
std::optional<std::string> takeDayField(std::string_view& rest, const DateComponents& day) {
  const auto take = [&rest](std::string_view field) {
    const bool found = rest.starts_with(field);
    if (found) rest.remove_prefix(field.size());
    return found;
  };
  if (take("%E4Y")) return fourDigitYear(day.year);
  if (take("%Y")) return fmt::to_string(day.year);
  if (take("%m")) return fmt::format("{:02}", day.month);
  if (take("%d")) return fmt::format("{:02}", day.day);
  if (take("%e")) return fmt::format("{:2}", day.day);
  if (take("%b")) return monthName("%b", day.month);
  if (take("%B")) return monthName("%B", day.month);
  return std::nullopt;
}

/// The pattern with the fields of the calendar day filled in.
std::string withDay(std::string_view pattern, const DateComponents& day) {
  std::string filled;
  while (!pattern.empty()) {
    if (const auto text = takeDayField(pattern, day)) {
      filled += *text;
      continue;
    }
    // Two characters at once, so that "%%Y" is a percent sign and a letter.
    const std::size_t length = pattern.front() == '%' && pattern.size() > 1 ? 2 : 1;
    filled += pattern.substr(0, length);
    pattern.remove_prefix(length);
  }
  return filled;
}

class SharedZone {
 public:
  TimeZone get() const {
    const std::lock_guard lock(mutex_);
    return zone_ ? *zone_ : TimeZone::defaultTimeZone();
  }
  void set(const TimeZone& zone) {
    const std::lock_guard lock(mutex_);
    zone_ = zone;
  }

 private:
  mutable std::mutex mutex_;
  std::optional<TimeZone> zone_;
};

SharedZone& sharedZone() {
  static SharedZone zone;
  return zone;
}

}  // namespace

DateFormatter::DateFormatter(std::string format, TimeZone zone)
    : format_(std::move(format)), zone_(std::move(zone)) {}

std::string DateFormatter::stringFromDate(Date date) const {
  const DateComponents components = Calendar(zone_).componentsFromDate(date);
  const auto second = static_cast<std::int64_t>(std::floor(date.timeIntervalSince1970()));
  return cctz::format(withDay(format_, components), Seconds(cctz::seconds(second)), zone_.rules());
}

DateFormatter sharedTimeFormatter() {
  return DateFormatter("%H:%M", sharedZone().get());
}

void setSharedFormattersTimeZone(const TimeZone& zone) {
  sharedZone().set(zone);
}

std::string timeStringFromDate(Date date) {
  return sharedTimeFormatter().stringFromDate(date);
}

std::string iso8601String(Date date, const TimeZone& zone) {
  const Date nearest =
      Date::withTimeIntervalSince1970(std::floor(date.timeIntervalSince1970() + 0.5));
  const bool isWholeMinutes = zone.secondsFromGMTForDate(nearest) % 60 == 0;
  return DateFormatter(isWholeMinutes ? "%E4Y-%m-%dT%H:%M:%S%Ez" : "%E4Y-%m-%dT%H:%M:%S%E*z", zone)
      .stringFromDate(nearest);
}

}  // namespace zenivo
