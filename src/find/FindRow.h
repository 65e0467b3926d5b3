// The rows of a list of found moments, as text, in the zone of the calendar.

#pragma once

#include <functional>
#include <string>

#include "find/FindResult.h"
#include "foundation/Calendar.h"

namespace zenivo {

/// What a row shows; a field that its search does not show is empty.
struct FindRow {
  std::string weekday;         ///< abbreviated
  std::string date;            ///< "2026-06-21"
  std::string time;            ///< "05:47"
  std::string azimuth;         ///< degrees, as the user's north has it
  std::string elevation;       ///< degrees
  std::string apparentHeight;  ///< metres or feet at the reference distance
  bool isEnabled = true;       ///< false for a moment that is gone
};

/// A row of a search for an azimuth.  The apparent height is that of something
/// `pinsDistance` metres away that just reaches the body: "--" for a body below
/// the horizon, ">9999" beyond four digits.
FindRow azimuthRow(const ZVFindResultBodyAtAzimuth& result, double pinsDistance, bool imperial,
                   Date now, const Calendar& calendar);

/// A row of a search for an azimuth and an elevation; `shownAzimuth` turns a true
/// azimuth into the one that the user reads.
FindRow azimuthElevationRow(const ZVFindResultBodyAtAzimuth& result,
                            const std::function<double(double)>& shownAzimuth, Date now,
                            const Calendar& calendar);

}  // namespace zenivo
