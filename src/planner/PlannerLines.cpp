// The session's lines on the map.

#include "planner/PlannerManager.h"

namespace zenivo {
namespace {

/// Makes the lines towards rise and set of one day; nullptr where the day has none.
template <class Event>
void recreateEventLines(Event& event, GeodesicCurveMapManager* geodesics,
                        const std::optional<ZVObserver>& observer) {
  const auto lineTo = [&](double mjd, double azimuth) -> std::shared_ptr<GeodesicLine> {
    if (geodesics == nullptr || !observer || !drawEventAtMjd(mjd)) return nullptr;
    return geodesics->geodesicLineFrom(observer->coordinate, azimuth);
  };
  event.riseLine = lineTo(event.mjdRise(), event.riseAzimuth);
  event.setLine = lineTo(event.mjdSet(), event.setAzimuth);
}

template <class Event>
void recalculateEventLinePositions(Event& event, GeodesicCurveMapManager* geodesics) {
  event.riseLinePositions = positionsOfLine(geodesics, event.riseLine);
  event.setLinePositions = positionsOfLine(geodesics, event.setLine);
}

}  // namespace

void PlannerManager::initGeodesics() {
  MapManager::initGeodesics();
  recreateAllLines();
}

void PlannerManager::deallocGeodesics() {
  MapManager::deallocGeodesics();
  recreateAllLines();
}

void PlannerManager::recreateAllLines() {
  for (std::size_t day = 0; day < sunEvents_.size(); ++day) recreateRiseSetLines(day);
  recalculatePositionsForGeodesicRiseSetLines();
  recreateCurrentTimeLines();
}

void PlannerManager::setExpandLines(bool expand) {
  expandLines_ = expand;
  recreateCurrentTimeLines();
}

void PlannerManager::recreateCurrentTimeLines() {
  sunLines_ = {};
  moonLines_ = {};
  if (!drawGeodesicLines() || !observer_ || !positionsDate_) return;
  recreateLines(sunLines_, mapSettings_.sunLayer, sunPosition_.azimuth_, sunAngularDiameter_);
  recreateLines(moonLines_, mapSettings_.moonLayer, moonPosition_.azimuth_, moonAngularDiameter_);
  recalculatePositionsForGeodesicCurrentTimeLines();
}

void PlannerManager::recreateLines(BodyLines& lines, const PlannerBodyLayerState& layer,
                                   double azimuth, double angularDiameter) {
  lines.recreateLines(*geodesicCurveMapManager(), observer_->coordinate, azimuth, expandLines_);
  if (layer.showAngularDiameter) {
    lines.recreateAngularDiameterLines(*geodesicCurveMapManager(), observer_->coordinate, azimuth,
                                       angularDiameter);
  }
}

void PlannerManager::recalculatePositionsForGeodesicCurrentTimeLines() {
  sunLines_.recalculatePositions(*geodesicCurveMapManager());
  moonLines_.recalculatePositions(*geodesicCurveMapManager());
}

void PlannerManager::recreateRiseSetLines(std::size_t forEvent) {
  recreateEventLines(sunEvents_[forEvent], geodesicCurveMapManager(), observer_);
  recreateEventLines(moonEvents_[forEvent], geodesicCurveMapManager(), observer_);
}

void PlannerManager::recalculatePositionsForGeodesicRiseSetLines() {
  for (std::size_t day = 0; day < sunEvents_.size(); ++day) {
    GeodesicCurveMapManager* geodesics = day == kToday ? geodesicCurveMapManager() : nullptr;
    recalculateEventLinePositions(sunEvents_[day], geodesics);
    recalculateEventLinePositions(moonEvents_[day], geodesics);
  }
}

}  // namespace zenivo
