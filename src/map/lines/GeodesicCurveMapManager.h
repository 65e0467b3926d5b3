// Lines on the map that follow the Earth's curvature.

#pragma once

#include <memory>
#include <vector>

#include "place/Coordinate.h"

namespace zenivo {

class GeodesicLine;

/// The points of a line that the map draws, from its start on.
using LinePositions = std::vector<Coordinate>;

/// Makes the geodesic lines of a map and samples them as its zoom demands.
class GeodesicCurveMapManager {
 public:
  virtual ~GeodesicCurveMapManager() = default;

  /// The line from a point along an azimuth (degrees from true north), and the
  /// one from a point to another.
  virtual std::shared_ptr<GeodesicLine> geodesicLineFrom(const Coordinate& from,
                                                         double azimuth) = 0;
  virtual std::shared_ptr<GeodesicLine> geodesicLineFrom(const Coordinate& from,
                                                         const Coordinate& to) = 0;

  virtual void calculatePositionsForLine(GeodesicLine& line, LinePositions& intoArray) = 0;
};

}  // namespace zenivo
