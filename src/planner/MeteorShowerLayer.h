// The shower that a planning session shows, as the shower manager knows it.

#pragma once

#include <memory>

#include "meteors/MeteorShowerManager.h"
#include "planner/MeteorLayer.h"

namespace zenivo {

/// One shower of the catalogue, followed through the session's moments and places.
/// Its real peaks are known on return from every change.
class MeteorShowerLayer : public MeteorLayer {
 public:
  /// Peaks are taken from the cache, and put into it, where one is given.
  MeteorShowerLayer(std::int64_t showerId, Date currentDate, const TimeZone& zone,
                    MeteorShowerManager::Cache cache);

  void updateLocation(const PtPosition& observer) override;
  void timeZoneUpdated(const TimeZone& zone) override;
  void updateMeteorShowerInfo(Date currentDate) override;
  void calculateMeteorShowerActivitesForYear(std::int64_t year) override;
  double realPeakMjd() const override { return realPeakMjd_; }
  std::optional<ephemeris::PtStar> radiant(double mjd) override;

 private:
  std::int64_t showerId_;
  MeteorShowerManager manager_;
  double realPeakMjd_ = 0.0;
};

/// Makes the layers of a session.
MakeMeteorLayer makeMeteorShowerLayers(MeteorShowerManager::Cache cache);

}  // namespace zenivo
