#include "planner/BodyLines.h"

namespace zenivo {

LinePositions positionsOfLine(GeodesicCurveMapManager* geodesics,
                              const std::shared_ptr<GeodesicLine>& line) {
  LinePositions positions;
  if (geodesics != nullptr && line) geodesics->calculatePositionsForLine(*line, positions);
  return positions;
}

void BodyLines::recreateLines(GeodesicCurveMapManager& geodesics, const Coordinate& from,
                              double azimuth, bool expand) {
  line = geodesics.geodesicLineFrom(from, azimuth);
  expandedLine = expand ? geodesics.geodesicLineFrom(from, azimuth - 180.0) : nullptr;
}

void BodyLines::recreateAngularDiameterLines(GeodesicCurveMapManager& geodesics,
                                             const Coordinate& from, double azimuth,
                                             double angularDiameter) {
  sizeFirstSideLine = geodesics.geodesicLineFrom(from, azimuth + angularDiameter / 2);
  sizeSecondSideLine = geodesics.geodesicLineFrom(from, azimuth - angularDiameter / 2);
}

void BodyLines::recalculatePositions(GeodesicCurveMapManager& geodesics) {
  linePositions = positionsOfLine(&geodesics, line);
  expandedLinePositions = positionsOfLine(&geodesics, expandedLine);
  sizeFirstSideLinePositions = positionsOfLine(&geodesics, sizeFirstSideLine);
  sizeSecondSideLinePositions = positionsOfLine(&geodesics, sizeSecondSideLine);
}

}  // namespace zenivo
