// Lines on the map that follow the Earth's curvature.

#pragma once

#include <memory>
#include <vector>

#include "map/geodesy/Geodesic.h"
#include "map/lines/MapView.h"
#include "place/Coordinate.h"

namespace zenivo {

/// The points of a line that the map draws, from its start on.
using LinePositions = std::vector<Coordinate>;

/// Hears when the lines of a map need another length or other points.
class GeodesicCurveMapManagerListener {
 public:
  virtual ~GeodesicCurveMapManagerListener() = default;
  virtual void recalculateGeodesicLines() {}
};

/// Makes the geodesic lines of a map and samples them as its zoom demands: far out a line is
/// long and coarse, near the ground short and fine, and dense at the observer's feet when the
/// map is tilted and he looks along it.
///
/// Until a map is shown lines are 1000 km long, in pieces of 25 km.  Belongs to the main
/// thread.
class GeodesicCurveMapManager {
 public:
  static constexpr double DistanceWithMaxResolution = 2000;  ///< metres, dense on a tilted map
  static constexpr double MaxResolutionSegmentLength = 50;   ///< metres, of a piece there

  /// The listener is held weakly.
  void setDelegate(std::weak_ptr<GeodesicCurveMapManagerListener> delegate);

  const Geodesic& geoide() const { return Geodesic::wgs84(); }
  int geodesicLineLength() const { return geodesicLineLength_; }  ///< metres, towards an azimuth
  int geodesicLineSegmentLength() const { return geodesicLineSegmentLength_; }  ///< metres

  /// Takes over zoom and tilt.  Tells the listener when lines change by it; inside a band of
  /// zooms, and while the map has no frame, nothing happens.
  void mapDidMove(const MapView& map);

  /// The line from a point along an azimuth (degrees from true north) over
  /// geodesicLineLength, and the one from a point to another.
  std::shared_ptr<GeodesicLine> geodesicLineFrom(const Coordinate& from, double azimuth);
  std::shared_ptr<GeodesicLine> geodesicLineFrom(const Coordinate& from, const Coordinate& to);

  /// Fills `intoArray` with points at equal arcs from start to end: at most 101 (141 on a
  /// tilted map) towards an azimuth, between pins up to 4,001 (4,041).  None for a line whose
  /// end is no place, as one to the invalid coordinate.
  void calculatePositionsForLine(const GeodesicLine& line, LinePositions& intoArray) const;

 private:
  bool isDenseNearby() const;

  std::weak_ptr<GeodesicCurveMapManagerListener> delegate_;
  int currentZoomLevelForGeodesics_ = -1;  ///< none yet: the first map that is shown counts
  bool isMapTilted_ = false;
  int geodesicLineSegmentLength_ = 25'000;
  int geodesicLineLength_ = 1'000'000;
};

}  // namespace zenivo
