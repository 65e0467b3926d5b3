#include "planner/CurrentTimeLines.h"

namespace zenivo {

void CurrentTimeLines::draw(GeodesicCurveMapManager* geodesics, const Coordinate* from,
                            const SkyAtMoment& sky, const MapSettings& layers) {
  sun_ = {};
  moon_ = {};
  if (geodesics == nullptr || from == nullptr || !sky.date) return;
  const auto drawBody = [&](BodyLines& lines, const PlannerBodyLayerState& layer, double azimuth,
                            double angularDiameter) {
    lines.recreateLines(*geodesics, *from, azimuth, expandLines_);
    if (layer.showAngularDiameter) {
      lines.recreateAngularDiameterLines(*geodesics, *from, azimuth, angularDiameter);
    }
    lines.recalculatePositions(*geodesics);
  };
  drawBody(sun_, layers.sunLayer, sky.sunPosition.azimuth_, sky.sunAngularDiameter);
  drawBody(moon_, layers.moonLayer, sky.moonPosition.azimuth_, sky.moonAngularDiameter);
}

}  // namespace zenivo
