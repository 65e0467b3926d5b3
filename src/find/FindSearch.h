// A search for a direction over a period, on the thread that asks.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "find/DateRange.h"
#include "find/FindResults.h"
#include "foundation/Progress.h"
#include "place/ZVObserver.h"

namespace zenivo {

/// An elevation with the tolerances of its search, degrees.
struct ElevationWindow {
  float azimuthError = 0;
  float elevation = 0;
  float elevationError = 0;

  /// What an error of 0 stands for.
  double usedElevationError() const { return elevationError == 0 ? 0.1 : double{elevationError}; }
};

/// What is searched for, and how the results are to be sorted.
struct FindRequest {
  FindBody body = FindBody::sun;
  DatePeriod period;
  float azimuth = 0;                         ///< degrees from true north
  std::optional<ElevationWindow> elevation;  ///< none: the azimuth alone
  bool allPassages = false;                  ///< of a search for an azimuth alone
  FindColumn column = FindColumn::date;
  bool ascending = true;

  FindSearchKind kind() const {
    return elevation ? FindSearchKind::azimuthElevation : FindSearchKind::azimuth;
  }
};

/// Years, both included.
struct FindYears {
  std::int64_t first;
  std::int64_t last;
};

/// The years in which the searches that rest on the fast series lose no day: there the fast
/// and the full series differ by 0.13 degrees at most (measured every 200 years from -4000 to
/// 8000: the Sun 0.129 in 600 and 0.130 in 3400, the Moon 0.123 in 1400 and 0.128 in 2600),
/// half of what the tolerance of 0.495 degrees leaves beside the rounding to minutes.
constexpr FindYears searchableYears(FindBody body) {
  return body == FindBody::sun ? FindYears{600, 3400} : FindYears{1400, 2600};
}

/// The moment to which the azimuth and elevation of a result belong: the whole minute nearest
/// to its date; its date itself in a search for all passages.
Date dateOfPosition(const ZVFindResultBodyAtAzimuth& result, const FindRequest& request);

struct FoundDirections {
  FindResults::Rows results;                ///< everything, sorted
  FindResults::Rows rows;                   ///< what a list of it shows, sorted
  std::optional<std::string_view> message;  ///< key of the table "Ephemeris"
  bool isComplete = true;                   ///< false: goOn stopped the search
};

/// Searches day by day; goOn is asked before each.  Of a search for an azimuth and an
/// elevation only what is within its tolerances at a whole minute by the full series is told,
/// but for an azimuth tolerance of 0, which means to the minute.
/// REQUIRES: but for all passages, a period within searchableYears.
FoundDirections findDirection(const ZVObserver& observer, const FindRequest& request,
                              const GoOn& goOn);

}  // namespace zenivo
