// Civil times of named zones.

#pragma once

#include <cstdint>
#include <string>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"

namespace zenivo {

inline TimeZone zoneNamed(const std::string& name) {
  return TimeZone::timeZoneWithName(name).value();
}

/// A civil time in a zone.
inline Date dateIn(const std::string& zone, std::int64_t year, int month, int day, int hour = 0,
                   int minute = 0, int second = 0) {
  return Calendar(zoneNamed(zone)).dateFromComponents({year, month, day, hour, minute, second});
}

inline Date utc(std::int64_t year, int month, int day, int hour = 0, int minute = 0,
                int second = 0) {
  return dateIn("GMT", year, month, day, hour, minute, second);
}

}  // namespace zenivo
