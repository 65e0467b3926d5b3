// Time zones of the IANA database, through cctz and the system's tzdata.

#pragma once

#include <cctz/time_zone.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/Date.h"

namespace zenivo {

/// One zone of the IANA database.  A cheap value; equal names compare equal.
class TimeZone {
 public:
  /// The zone "GMT".
  TimeZone();

  /// The zone of an IANA name such as "Europe/Paris" or "Etc/GMT+5", or nullopt
  /// when the database has none of that name.  Nothing but a name is looked up:
  /// absolute paths and paths with ".." name no zone.
  static std::optional<TimeZone> timeZoneWithName(std::string_view name);

  /// The zone of the device: $TZ, else what /etc/localtime points to, else GMT.
  static TimeZone systemTimeZone();

  /// The process-wide default zone; the system's until one is set.
  static TimeZone defaultTimeZone();
  static void setDefaultTimeZone(const TimeZone& zone);

  /// Every zone name the database lists, sorted.
  static const std::vector<std::string>& knownTimeZoneNames();

  const std::string& name() const { return name_; }

  /// Seconds east of Greenwich at that moment, summer time included.
  int secondsFromGMTForDate(Date date) const;

  const cctz::time_zone& rules() const { return rules_; }

  friend bool operator==(const TimeZone& a, const TimeZone& b) { return a.name_ == b.name_; }

 private:
  TimeZone(std::string name, cctz::time_zone rules);

  std::string name_;
  cctz::time_zone rules_;
};

}  // namespace zenivo
