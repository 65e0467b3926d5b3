#include "foundation/PropertyListDate.h"

#include <cctz/time_zone.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace zenivo {
namespace {

using Seconds = cctz::time_point<cctz::seconds>;

// Seconds from the reference date to the first of the year -9999 and to the last
// of the year 9999.
constexpr double kFirstSecond = -378676252800.0;
constexpr double kLastSecond = 252423993599.0;

Seconds secondsSince1970(double secondsSinceReferenceDate) {
  return Seconds(cctz::seconds(static_cast<std::int64_t>(
      secondsSinceReferenceDate + kTimeIntervalBetween1970AndReferenceDate)));
}

}  // namespace

std::string propertyListDateString(Date date) {
  double seconds = date.timeIntervalSinceReferenceDate();
  seconds = std::isnan(seconds) ? 0 : std::clamp(seconds, kFirstSecond, kLastSecond);
  double whole = std::floor(seconds);
  double fraction = seconds - whole;
  if (fraction >= 1) {  // rounded up, just before the reference date
    whole += 1;
    fraction = 0;
  }
  std::string text =
      cctz::format("%E4Y-%m-%dT%H:%M:%S", secondsSince1970(whole), cctz::utc_time_zone());
  if (fraction > 0) {
    std::array<char, 400> digits;  // the smallest double has 324 decimals
    const auto end =
        std::to_chars(digits.begin(), digits.end(), fraction, std::chars_format::fixed);
    text.append(digits.begin() + 1, end.ptr);
  }
  return text + "Z";
}

std::optional<Date> dateFromPropertyListString(std::string_view text) {
  if (!text.ends_with('Z')) return std::nullopt;
  text.remove_suffix(1);
  double fraction = 0;
  if (const std::size_t point = text.find('.'); point != std::string_view::npos) {
    const char* end = text.data() + text.size();
    const auto parsed =
        std::from_chars(text.data() + point, end, fraction, std::chars_format::fixed);
    if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
    text = text.substr(0, point);
  }
  Seconds whole;
  if (!cctz::parse("%Y-%m-%dT%H:%M:%S", std::string(text), cctz::utc_time_zone(), &whole)) {
    return std::nullopt;
  }
  return Date::withTimeIntervalSince1970(static_cast<double>(whole.time_since_epoch().count()))
      .dateByAddingTimeInterval(fraction);
}

}  // namespace zenivo
