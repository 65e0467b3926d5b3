// Reading dates and times in ISO 8601.

#pragma once

#include <string_view>

#include "foundation/Calendar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"

namespace zenivo {

/// Reads "now" or an ISO 8601 date and time: 2026-06-21T05:47, with seconds and their
/// fraction if wanted, a space in place of the T, without the separators
/// (20260621T0547), and with Z or an offset (+02:00, +0200, +02,
/// with seconds +00:09:21).  Without
/// either the time is local to `zone`; of a time that comes twice when clocks
/// go back the first is meant, and the second is written with its offset.  A date
/// alone means the moment its local day begins.
/// Throws InputError for anything else, for a date or time that does not exist (February
/// 30, 25:00, a local time that the clocks skip) and years outside 1583 to 9999.
Date parseMoment(std::string_view text, const TimeZone& zone, Date now);

/// Reads "today" (that of `now` in `zone`) or a date, 2026-06-21 or 20260621.
/// Throws InputError as parseMoment does, and for a day that the zone skipped.
DateComponents parseDay(std::string_view text, const TimeZone& zone, Date now);

/// Reads a month, 2026-06; or a day of it, whose day is then dropped.  The
/// result is the first of the month.
DateComponents parseMonth(std::string_view text);

/// Reads a year, 1583 to 9999.
int parseYear(std::string_view text);

}  // namespace zenivo
