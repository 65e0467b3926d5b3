// Dates as property lists write them: ISO 8601 in UTC, "2026-06-21T05:47:00Z",
// with decimals of the second where there are any.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/Date.h"

namespace zenivo {

/// The text of a date; the nearest moment within the years -9999 to 9999 where
/// it lies outside, the reference date for not-a-number.
std::string propertyListDateString(Date date);

/// The date of such a text, nullopt for any other text.
std::optional<Date> dateFromPropertyListString(std::string_view text);

}  // namespace zenivo
