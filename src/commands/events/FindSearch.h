// A search for a direction, run to its end or until the user has enough.

#pragma once

#include <optional>
#include <string_view>

#include "find/DateRange.h"
#include "find/FindResultsList.h"
#include "foundation/Progress.h"

namespace zenivo::cli {

/// An elevation with the tolerances of its search, degrees.
struct ElevationWindow {
  float azimuthError = 0;
  float elevation = 0;
  float elevationError = 0;
};

struct FindRequest {
  FindBody body = FindBody::sun;
  ZVObserver observer;
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

struct FindOutcome {
  FindResultsList::Results results;         ///< everything, sorted
  FindResultsList::Results rows;            ///< what a list of it shows, sorted
  std::optional<std::string_view> message;  ///< key of the table "Ephemeris"
  bool isComplete = true;                   ///< false: interrupted
};

/// Searches with the cached calendar, on the main thread and a worker.
FindOutcome findDirection(const FindRequest& request, const GoOn& goOn);

}  // namespace zenivo::cli
