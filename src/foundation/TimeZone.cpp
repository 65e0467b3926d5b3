#include "foundation/TimeZone.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <sstream>
#include <utility>

namespace zenivo {
namespace {

constexpr const char* kZoneDirectory = "/usr/share/zoneinfo";

using Seconds = cctz::time_point<cctz::seconds>;

Seconds wholeSecond(Date date) {
  return Seconds(
      cctz::seconds(static_cast<std::int64_t>(std::floor(date.timeIntervalSince1970()))));
}

bool isPlainName(std::string_view name) {
  const auto allowed = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '-' || c == '+' || c == '/';
  };
  return !name.empty() && name.size() <= 64 && name.front() != '/' &&
         std::all_of(name.begin(), name.end(), allowed);
}

/// The IANA name behind /etc/localtime, empty when it is no link into the database.
std::string nameOfLocalTimeLink() {
  std::error_code error;
  const auto target = std::filesystem::canonical("/etc/localtime", error).string();
  const std::string prefix = std::string(kZoneDirectory) + "/";
  return !error && target.starts_with(prefix) ? target.substr(prefix.size()) : std::string();
}

std::mutex& defaultZoneMutex() {
  static std::mutex mutex;
  return mutex;
}

std::optional<TimeZone>& defaultZone() {
  static std::optional<TimeZone> zone;
  return zone;
}

}  // namespace

TimeZone::TimeZone() : name_("GMT"), rules_(cctz::utc_time_zone()) {}

TimeZone::TimeZone(std::string name, cctz::time_zone rules)
    : name_(std::move(name)), rules_(rules) {}

std::optional<TimeZone> TimeZone::timeZoneWithName(std::string_view name) {
  cctz::time_zone rules;
  if (!isPlainName(name) || !cctz::load_time_zone(std::string(name), &rules)) return std::nullopt;
  return TimeZone(std::string(name), rules);
}

TimeZone TimeZone::systemTimeZone() {
  // $TZ may carry a leading colon; an empty one means UTC.
  if (const char* variable = std::getenv("TZ")) {
    std::string_view name(variable);
    if (name.starts_with(':')) name.remove_prefix(1);
    return timeZoneWithName(name).value_or(TimeZone());
  }
  return timeZoneWithName(nameOfLocalTimeLink()).value_or(TimeZone());
}

TimeZone TimeZone::defaultTimeZone() {
  const std::lock_guard lock(defaultZoneMutex());
  return defaultZone() ? *defaultZone() : systemTimeZone();
}

void TimeZone::setDefaultTimeZone(const TimeZone& zone) {
  const std::lock_guard lock(defaultZoneMutex());
  defaultZone() = zone;
}

const std::vector<std::string>& TimeZone::knownTimeZoneNames() {
  static const std::vector<std::string> names = [] {
    std::vector<std::string> list;
    std::ifstream table(std::string(kZoneDirectory) + "/tzdata.zi");
    for (std::string line; std::getline(table, line);) {
      // "Z NAME ..." opens a zone, "L TARGET NAME" is a link.
      std::istringstream words(line);
      std::string kind, first, second;
      words >> kind >> first >> second;
      if (kind == "Z") list.push_back(first);
      if (kind == "L") list.push_back(second);
    }
    std::sort(list.begin(), list.end());
    return list;
  }();
  return names;
}

int TimeZone::secondsFromGMTForDate(Date date) const {
  return rules_.lookup(wholeSecond(date)).offset;
}

}  // namespace zenivo
