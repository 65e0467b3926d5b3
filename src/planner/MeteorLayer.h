// The meteor shower of a planning session.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "engine/PtPosition.h"
#include "engine/PtStar.h"
#include "foundation/Date.h"
#include "foundation/TimeZone.h"

namespace zenivo {

/// What the session asks of the side that knows the showers, while it shows one.
class MeteorLayer {
 public:
  virtual ~MeteorLayer() = default;

  /// The place has changed, or the zone, or the moment.
  virtual void updateLocation(const PtPosition& observer) = 0;
  virtual void timeZoneUpdated(const TimeZone& zone) = 0;
  virtual void updateMeteorShowerInfo(Date currentDate) = 0;

  /// Works out the shower's activity in a year.
  virtual void calculateMeteorShowerActivitesForYear(std::int64_t year) = 0;

  /// When the shower is richest at the place in that year; 0.0 where it is not seen, and
  /// after a change of place or zone until the year is worked out again.
  virtual double realPeakMjd() const = 0;

  /// The shower's radiant, for the place, where it stands among the stars at a moment;
  /// nullopt for a shower that is not known.
  virtual std::optional<ephemeris::PtStar> radiant(double mjd) = 0;
};

/// Makes the layer of a shower, by its number, at a session's moment and in its zone.
using MakeMeteorLayer = std::function<std::unique_ptr<MeteorLayer>(
    std::int64_t showerId, Date currentDate, const TimeZone& zone)>;

}  // namespace zenivo
