#include "commands/common/Clock.h"

#include <cctz/civil_time.h>
#include <fmt/format.h>

#include <cmath>
#include <cstdlib>

#include "foundation/DateFormatter.h"
#include "time/DateEphemeris.h"
#include "time/Mjd.h"

namespace zenivo::cli {
namespace {

cctz::civil_day civilDay(const DateComponents& c) {
  return cctz::civil_day(c.year, c.month, c.day);
}

std::string offsetText(int seconds) {
  const int size = std::abs(seconds);
  const char sign = seconds < 0 ? '-' : '+';
  const std::string text = fmt::format("UTC{}{:02}:{:02}", sign, size / 3600, size / 60 % 60);
  return size % 60 == 0 ? text : fmt::format("{}:{:02}", text, size % 60);  // local mean time
}

/// On the clock of the zone, whose offset may have seconds, as those of old mean times.
Date nearestMinute(Date date, const TimeZone& zone) {
  const int offset = zone.secondsFromGMTForDate(date);
  const double minutes = std::floor((date.timeIntervalSince1970() + offset) / 60 + 0.5);
  return Date::withTimeIntervalSince1970(minutes * 60 - offset);
}

}  // namespace

std::string dayTitle(Date date, const TimeZone& zone) {
  const int day = Calendar(zone).componentsFromDate(date).day;
  return DateFormatter(fmt::format("%A {} %B %E4Y", day), zone).stringFromDate(date);
}

std::string momentTitle(double mjd, const TimeZone& zone) {
  const Date moment = dateOfMjd(mjd);
  const DayClock clock(Calendar(zone).componentsFromDate(moment), zone);
  return fmt::format("{}, {} {}", dayTitle(moment, zone), clock.time(mjd),
                     offsetTitle(moment, zone));
}

std::string offsetTitle(Date date, const TimeZone& zone) {
  return offsetText(zone.secondsFromGMTForDate(date));
}

std::string offsetTitle(Date start, Date end, const TimeZone& zone) {
  const int first = zone.secondsFromGMTForDate(start);
  const int last = zone.secondsFromGMTForDate(end.dateByAddingTimeInterval(-1));
  return first == last ? offsetText(first)
                       : fmt::format("{}, then {}", offsetText(first), offsetText(last));
}

DayClock::DayClock(const DateComponents& day, TimeZone zone)
    : calendar_(std::move(zone)),
      day_{.year = day.year, .month = day.month, .day = day.day},
      start_(calendar_.dateFromComponents(day_)),
      end_(calendar_.dateFromComponents(
          {.year = day_.year, .month = day_.month, .day = day_.day + 1})) {}

std::string DayClock::time(double mjd) const {
  if (!drawEventAtMjd(mjd)) return "-";
  const Date minute = nearestMinute(dateOfMjd(mjd), zone());
  if (minute == end_) return "24:00";
  const DateComponents local = calendar_.componentsFromDate(minute);
  const std::string clock = fmt::format("{:02}:{:02}", local.hour, local.minute);
  const auto days = civilDay(local) - civilDay(day_);
  return days == 0 ? clock : fmt::format("{} {:+d}d", clock, days);
}

std::string DayClock::offset() const {
  return offsetTitle(start_, end_, zone());
}

}  // namespace zenivo::cli
