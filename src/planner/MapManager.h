// What every session on a map has: a settings store, the two pins and the lines
// between them.

#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "foundation/UserDefaults.h"
#include "map/lines/GeodesicCurveMapManager.h"
#include "map/lines/Obstacle.h"
#include "place/ZVObserver.h"

namespace zenivo {

/// Makes what draws geodesic lines, for the map of the moment.
using GeodesicsFactory = std::function<std::unique_ptr<GeodesicCurveMapManager>()>;

/// Belongs to the main thread.
class MapManager {
 public:
  /// Reads the observer from the store, which must outlive the session.  Without a
  /// factory lines are never drawn.
  explicit MapManager(UserDefaults& userDefaults, GeodesicsFactory geodesicsFactory = {});
  virtual ~MapManager() = default;

  MapManager(const MapManager&) = delete;
  MapManager& operator=(const MapManager&) = delete;

  /// The main pin; nullptr until there is a place.
  const ZVObserver* getObserver() const { return observer_ ? &*observer_ : nullptr; }
  virtual void setObserver(const ZVObserver& observer);

  /// The black pin; nullptr when none is set.
  Obstacle* getObstacle() const { return obstacle_.get(); }
  virtual void setObstacle(std::shared_ptr<Obstacle> obstacle);

  bool drawGeodesicLines() const { return geodesicCurveMapManager_ != nullptr; }
  void setDrawGeodesicLines(bool draw);

  /// Makes the lines anew for a map that has changed.
  void recreateGeodesicModels();

  /// From the main to the black pin; empty unless it is visible and lines are drawn.
  const LinePositions& getBlackPinLinePositions() const { return blackPinLinePositions_; }

 protected:
  UserDefaults& userDefaults() const { return userDefaults_; }
  GeodesicCurveMapManager* geodesicCurveMapManager() const {
    return geodesicCurveMapManager_.get();
  }

  /// After initGeodesics the session's own lines are made, after deallocGeodesics
  /// they are gone.
  virtual void initGeodesics();
  virtual void deallocGeodesics();

  void recreateBlackPinLine();

  std::optional<ZVObserver> observer_;

 private:
  UserDefaults& userDefaults_;
  GeodesicsFactory geodesicsFactory_;
  std::shared_ptr<Obstacle> obstacle_;
  std::unique_ptr<GeodesicCurveMapManager> geodesicCurveMapManager_;
  std::shared_ptr<GeodesicLine> blackPinLine_;
  LinePositions blackPinLinePositions_;
};

}  // namespace zenivo
