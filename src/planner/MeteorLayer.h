// The meteor showers of a planning session.

#pragma once

#include <cstdint>

#include "engine/PtStar.h"
#include "foundation/Date.h"

namespace zenivo {

/// What the session asks of the side that knows the showers, while one is shown.
class MeteorLayer {
 public:
  virtual ~MeteorLayer() = default;

  /// The place has changed, or the zone, or the moment.
  virtual void updateLocation(const PtPosition& observer) = 0;
  virtual void timeZoneUpdated() = 0;
  virtual void updateMeteorShowerInfo(Date currentDate) = 0;

  /// Works out the showers' activity in a year.
  virtual void calculateMeteorShowerActivitesForYear(std::int64_t year) = 0;

  /// When the shower is richest at the place, in the period of activity that holds the
  /// date; 0.0 while that is not known.
  virtual double realPeakMjd(std::int64_t showerId, Date date) const = 0;

  /// The shower's radiant, for the place, where it stands among the stars at a moment.
  virtual ephemeris::PtStar radiant(std::int64_t showerId, double mjd) const = 0;
};

}  // namespace zenivo
