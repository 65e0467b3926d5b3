#include "planner/MapManager.h"

#include <utility>

#include "app/settings/SettingsKeys.h"

namespace zenivo {

MapManager::MapManager(UserDefaults& userDefaults, GeodesicsFactory geodesicsFactory)
    : userDefaults_(userDefaults), geodesicsFactory_(std::move(geodesicsFactory)) {
  if (const auto archive = userDefaults_.objectForKey(settings::planner_observer)) {
    observer_ = ZVObserver::fromArchive(*archive);
  }
}

void MapManager::setObserver(const ZVObserver& observer) {
  observer_ = observer;
  if (obstacle_) obstacle_->recalculateDataWithObserver(observer);
  recreateBlackPinLine();
}

void MapManager::setObstacle(std::shared_ptr<Obstacle> obstacle) {
  obstacle_ = std::move(obstacle);
  if (obstacle_ && observer_) obstacle_->recalculateDataWithObserver(*observer_);
  recreateBlackPinLine();
}

void MapManager::setDrawGeodesicLines(bool draw) {
  if (draw == drawGeodesicLines()) return;
  if (draw) {
    initGeodesics();
  } else {
    deallocGeodesics();
  }
}

void MapManager::recreateGeodesicModels() {
  if (!drawGeodesicLines()) return;
  deallocGeodesics();
  initGeodesics();
}

void MapManager::initGeodesics() {
  if (geodesicsFactory_) geodesicCurveMapManager_ = geodesicsFactory_();
  recreateBlackPinLine();
}

void MapManager::deallocGeodesics() {
  geodesicCurveMapManager_.reset();
  recreateBlackPinLine();
}

void MapManager::recreateBlackPinLine() {
  blackPinLine_.reset();
  blackPinLinePositions_.clear();
  if (!drawGeodesicLines() || !observer_ || !obstacle_ || !obstacle_->isVisible) return;
  blackPinLine_ =
      geodesicCurveMapManager_->geodesicLineFrom(observer_->coordinate, obstacle_->coordinate);
  geodesicCurveMapManager_->calculatePositionsForLine(*blackPinLine_, blackPinLinePositions_);
}

}  // namespace zenivo
