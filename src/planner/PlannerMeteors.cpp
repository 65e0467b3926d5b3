// The session's meteor shower.

#include "planner/BodyPath.h"
#include "planner/PlannerManager.h"
#include "time/DateEphemeris.h"

namespace zenivo {

void PlannerManager::enableMeteorShower(std::int64_t showerId, const std::string& name,
                                        std::int64_t forYear) {
  MeteorShowerMapLayerState& layer = mapSettings_.meteorShowerLayer;
  layer.isVisible = true;
  layer.selectedMeteorShowerId = showerId;
  layer.selectedMeteorShowerName = name;
  layer.selectedYear = forYear;
  if (!makeMeteorLayer_) return;
  meteorLayer_ = makeMeteorLayer_(showerId, currentDate_, calendar_.timeZone());
  meteorLayer_->updateLocation(sun_->getPosition());
  meteorLayer_->calculateMeteorShowerActivitesForYear(forYear);
  meteorLayer_->updateMeteorShowerInfo(currentDate_);
  updateMeteorShowerPositionsPerHour();
}

void PlannerManager::disableMeteorShower() {
  mapSettings_.meteorShowerLayer = {};
  meteorLayer_.reset();
  updateMeteorShowerPositionsPerHour();
}

void PlannerManager::updateMeteorShowerLocation() {
  if (!meteorLayer_) return;
  meteorLayer_->updateLocation(sun_->getPosition());
  if (meteorLayer_->realPeakMjd() == 0.0) {
    meteorLayer_->calculateMeteorShowerActivitesForYear(
        mapSettings_.meteorShowerLayer.selectedYear);
  }
}

void PlannerManager::updateMeteorShowerPositionsPerHour() {
  meteorShowerPositionsPerHour_.reset();
  if (!meteorLayer_) return;
  const LocalDay day = LocalDay::of(currentDate_, calendar_);
  std::optional<ephemeris::PtStar> radiant = meteorLayer_->radiant(day.mjdAt0);
  if (!radiant) return;
  CelestialBodyEvent event;
  searchRiseTransitSet(event, *radiant, day);
  meteorShowerPositionsPerHour_ = positionPerHourForBody(*radiant, day, event, calendar_);
}

}  // namespace zenivo
