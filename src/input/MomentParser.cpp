#include "input/MomentParser.h"

#include <cctz/civil_time.h>
#include <cctz/time_zone.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "input/InputError.h"

namespace zenivo {
namespace {

constexpr int kFirstYear = 1583;
constexpr int kLastYear = 9999;

using Instant = cctz::time_point<cctz::seconds>;

Date dateOf(Instant instant) {
  return Date::withTimeIntervalSince1970(static_cast<double>(instant.time_since_epoch().count()));
}

/// A text, read from its front.
class Scanner {
 public:
  Scanner(std::string_view text, std::string_view example)
      : text_(text), rest_(text), example_(example) {}

  [[noreturn]] void fail(std::string_view reason) const {
    throw InputError(fmt::format("{} is no date or time: {}", inQuotes(text_), reason));
  }
  [[noreturn]] void failForm() const { fail(fmt::format("write it as in {}", example_)); }

  bool isAtEnd() const { return rest_.empty(); }
  bool isNext(std::string_view characters) const {
    return !rest_.empty() && characters.find(rest_.front()) != std::string_view::npos;
  }
  bool accept(std::string_view characters) {
    if (!isNext(characters)) return false;
    rest_.remove_prefix(1);
    return true;
  }
  /// A number of exactly `count` digits.
  int digits(std::size_t count) {
    if (rest_.size() < count) failForm();
    int value = 0;
    for (const char c : rest_.substr(0, count)) {
      if (c < '0' || c > '9') failForm();
      value = value * 10 + (c - '0');
    }
    rest_.remove_prefix(count);
    return value;
  }
  /// How many digits are next.
  std::size_t countDigits() const {
    return std::min(rest_.find_first_not_of("0123456789"), rest_.size());
  }
  /// The digits after a decimal point, as a fraction.
  double fraction() {
    if (!isNext("0123456789")) failForm();
    double value = 0;
    for (double unit = 0.1; isNext("0123456789"); unit /= 10) value += unit * digits(1);
    return value;
  }

 private:
  std::string_view text_;
  std::string_view rest_;
  std::string_view example_;
};

constexpr std::string_view kMomentExample = "2026-06-21T05:47 or 2026-06-21T05:47:00+02:00";
constexpr std::string_view kDayExample = "2026-06-21";

int readYear(Scanner& scanner) {
  const int year = scanner.digits(4);
  if (year < kFirstYear || year > kLastYear) {
    scanner.fail(fmt::format("the year must be {} to {}", kFirstYear, kLastYear));
  }
  return year;
}

int readMonth(Scanner& scanner) {
  const int month = scanner.digits(2);
  if (month < 1 || month > 12) scanner.fail("the month must be 1 to 12");
  return month;
}

cctz::civil_day readDay(Scanner& scanner) {
  // A count of seconds is no year of four digits with something behind it.
  if (scanner.countDigits() > 5 && scanner.countDigits() != 8) scanner.failForm();
  const int year = readYear(scanner);
  const bool isExtended = scanner.accept("-");
  const int month = readMonth(scanner);
  if (isExtended && !scanner.accept("-")) scanner.failForm();
  const int day = scanner.digits(2);
  const cctz::civil_month first(year, month);
  const auto length = cctz::civil_day(first + 1) - cctz::civil_day(first);
  if (day < 1 || day > length) scanner.fail(fmt::format("that month has {} days", length));
  return cctz::civil_day(year, month, day);
}

struct TimeOfDay {
  int seconds = 0;
  double fraction = 0;
};

TimeOfDay readTime(Scanner& scanner) {
  const int hour = scanner.digits(2);
  const bool isExtended = scanner.accept(":");
  const int minute = scanner.digits(2);
  TimeOfDay time;
  int second = 0;
  if (isExtended ? scanner.accept(":") : scanner.isNext("0123456789")) {
    second = scanner.digits(2);
    if (scanner.accept(".,")) time.fraction = scanner.fraction();
  }
  if (hour > 23) scanner.fail("the hour must be 0 to 23");
  if (minute > 59 || second > 59) scanner.fail("minutes and seconds must be 0 to 59");
  time.seconds = hour * 3600 + minute * 60 + second;
  return time;
}

/// Seconds east of Greenwich, or nullopt when the text gives no offset.
std::optional<int> readOffset(Scanner& scanner) {
  scanner.accept(" ");
  if (scanner.isAtEnd()) return std::nullopt;
  if (scanner.accept("Zz")) return 0;
  const bool isWest = scanner.isNext("-");
  if (!scanner.accept("+-")) scanner.failForm();
  const int hours = scanner.digits(2);
  const auto more = [&] {
    return scanner.accept(":") || !scanner.isAtEnd() ? scanner.digits(2) : 0;
  };
  const int minutes = more();
  const int seconds = more();
  if (hours > 23) scanner.fail("the offset must be less than 24 hours");
  if (minutes > 59) scanner.fail("the offset's minutes must be 0 to 59");
  if (seconds > 59) scanner.fail("the offset's seconds must be 0 to 59");
  const int size = hours * 3600 + minutes * 60 + seconds;
  return isWest ? -size : size;
}

std::string text(cctz::civil_second t) {
  return fmt::format("{}-{:02}-{:02} {:02}:{:02}", t.year(), t.month(), t.day(), t.hour(),
                     t.minute());
}

Instant localInstant(const Scanner& scanner, cctz::civil_second local, const TimeZone& zone) {
  const cctz::time_zone::civil_lookup found = zone.rules().lookup(local);
  if (found.kind == cctz::time_zone::civil_lookup::SKIPPED) {
    const cctz::civil_second before =
        zone.rules().lookup(found.trans - std::chrono::seconds(1)).cs + 1;
    const cctz::civil_second after = zone.rules().lookup(found.trans).cs;
    scanner.fail(
        fmt::format("in {} the clocks go from {} to {}", zone.name(), text(before), text(after)));
  }
  return found.pre;
}

void expectEnd(const Scanner& scanner) {
  if (!scanner.isAtEnd()) scanner.failForm();
}

/// The moment a local day begins: midnight, or when the clocks skip that, the jump.
Instant startOfDay(cctz::civil_day day, const TimeZone& zone) {
  const auto found = zone.rules().lookup(cctz::civil_second(day));
  return found.kind == cctz::time_zone::civil_lookup::SKIPPED ? found.trans : found.pre;
}

void expectDayExists(const Scanner& scanner, cctz::civil_day day, const TimeZone& zone) {
  if (cctz::civil_day(zone.rules().lookup(startOfDay(day, zone)).cs) != day) {
    scanner.fail(fmt::format("{} skipped that day", zone.name()));
  }
}

}  // namespace

Date parseMoment(std::string_view text, const TimeZone& zone, Date now) {
  if (text == "now") return now;
  Scanner scanner(text, kMomentExample);
  const cctz::civil_day day = readDay(scanner);
  if (scanner.isAtEnd()) {
    expectDayExists(scanner, day, zone);
    return dateOf(startOfDay(day, zone));
  }
  if (!scanner.accept("Tt ")) scanner.failForm();
  const TimeOfDay time = readTime(scanner);
  const cctz::civil_second civil = cctz::civil_second(day) + time.seconds;
  const std::optional<int> offset = readOffset(scanner);
  expectEnd(scanner);
  const Instant instant =
      offset ? cctz::convert(civil, cctz::utc_time_zone()) - std::chrono::seconds(*offset)
             : localInstant(scanner, civil, zone);
  return dateOf(instant).dateByAddingTimeInterval(time.fraction);
}

DateComponents parseDay(std::string_view text, const TimeZone& zone, Date now) {
  if (text == "today") {
    const DateComponents local = Calendar(zone).componentsFromDate(now);
    return {.year = local.year, .month = local.month, .day = local.day};
  }
  Scanner scanner(text, kDayExample);
  const cctz::civil_day day = readDay(scanner);
  expectEnd(scanner);
  expectDayExists(scanner, day, zone);
  return {.year = day.year(), .month = day.month(), .day = day.day()};
}

DateComponents parseMonth(std::string_view text) {
  Scanner scanner(text, "2026-06");
  const int year = readYear(scanner);
  if (!scanner.accept("-")) scanner.failForm();
  const int month = readMonth(scanner);
  if (scanner.accept("-")) {
    Scanner wholeDay(text, kDayExample);
    readDay(wholeDay);
    expectEnd(wholeDay);
  } else {
    expectEnd(scanner);
  }
  return {.year = year, .month = month, .day = 1};
}

int parseYear(std::string_view text) {
  Scanner scanner(text, "2026");
  const int year = readYear(scanner);
  expectEnd(scanner);
  return year;
}

}  // namespace zenivo
