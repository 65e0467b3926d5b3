// A search for a direction over a period, on the thread that asks.

#pragma once

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

struct FoundDirections {
  FindResults::Rows results;                ///< everything, sorted
  FindResults::Rows rows;                   ///< what a list of it shows, sorted
  std::optional<std::string_view> message;  ///< key of the table "Ephemeris"
  bool isComplete = true;                   ///< false: goOn stopped the search
};

/// Searches day by day; goOn is asked before each.
FoundDirections findDirection(const ZVObserver& observer, const FindRequest& request,
                              const GoOn& goOn);

}  // namespace zenivo
