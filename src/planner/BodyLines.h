// The lines on the map towards a body.

#pragma once

#include <memory>

#include "map/lines/GeodesicCurveMapManager.h"

namespace zenivo {

/// The line from the observer towards a body's azimuth, the one to the opposite
/// side, those past both limbs of its disk, and the points of each.  A line that is
/// not drawn is nullptr and has no points.
struct BodyLines {
  std::shared_ptr<GeodesicLine> line;
  std::shared_ptr<GeodesicLine> expandedLine;
  std::shared_ptr<GeodesicLine> sizeFirstSideLine;
  std::shared_ptr<GeodesicLine> sizeSecondSideLine;
  LinePositions linePositions;
  LinePositions expandedLinePositions;
  LinePositions sizeFirstSideLinePositions;
  LinePositions sizeSecondSideLinePositions;

  /// Towards `azimuth` (degrees), and with `expand` opposite to it.
  void recreateLines(GeodesicCurveMapManager& geodesics, const Coordinate& from, double azimuth,
                     bool expand);
  /// At half the diameter (degrees) to both sides of the azimuth.
  void recreateAngularDiameterLines(GeodesicCurveMapManager& geodesics, const Coordinate& from,
                                    double azimuth, double angularDiameter);

  void recalculatePositions(GeodesicCurveMapManager& geodesics);
};

/// The points of `line`; none when one of the two is nullptr.
LinePositions positionsOfLine(GeodesicCurveMapManager* geodesics,
                              const std::shared_ptr<GeodesicLine>& line);

}  // namespace zenivo
