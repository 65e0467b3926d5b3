// From when to when: the options of a search.

#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "find/DateRange.h"
#include "foundation/TimeZone.h"

namespace zenivo::cli {

/// --from, --to and --range.
class PeriodOptions {
 public:
  void addTo(CLI::App& command);

  /// The whole local days that are meant: from today where no first day is given, for a
  /// month where no last day or length is.  Throws InputError for a period that ends
  /// before it begins or is longer than a search may be.
  DatePeriod resolve(const TimeZone& zone) const;

 private:
  std::string from_ = "today";
  std::string to_;
  std::string range_;
};

/// Reads "1d", "2w", "6m", "1y".  Throws InputError for anything else.
DateRange parseRange(std::string_view text);

}  // namespace zenivo::cli
