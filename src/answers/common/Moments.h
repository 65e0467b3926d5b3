// Moments of the ephemeris as JSON.

#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"

namespace zenivo {

using Json = nlohmann::ordered_json;

/// The object {"mjd": number, "time": text}: ISO 8601 in that zone with seconds and offset.
/// For a sentinel `mjd` holds it and `time` is null.
Json momentJson(double mjd, const TimeZone& zone);
/// The same of a date, without its fraction of a second.
Json momentJson(Date date, const TimeZone& zone);

/// "2026-06-21"
std::string isoDate(const DateComponents& day);

}  // namespace zenivo
