#include "answers/map/MapJson.h"

#include <cmath>

namespace zenivo {
namespace {

Json position(double longitude, double latitude) {
  return Json::array({longitude, latitude});
}

/// The pieces of a line between its crossings of the antimeridian.
Json piecesOf(const LinePositions& line) {
  Json pieces = Json::array({Json::array()});
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (i > 0 && std::abs(line[i].longitude - line[i - 1].longitude) > 180) {
      const double edge = line[i - 1].longitude < 0 ? -180 : 180;
      // Longitudes counted on, past the edge; points are so near that latitude is linear.
      const double step = line[i].longitude + 2 * edge - line[i - 1].longitude;
      const double part = step == 0 ? 0 : (edge - line[i - 1].longitude) / step;
      const double latitude =
          line[i - 1].latitude + part * (line[i].latitude - line[i - 1].latitude);
      pieces.back().push_back(position(edge, latitude));
      pieces.push_back(Json::array({position(-edge, latitude)}));
    }
    pieces.back().push_back(position(line[i].longitude, line[i].latitude));
  }
  return pieces;
}

}  // namespace

Json pinJson(const ZVLocation& location) {
  return {{"latitude", location.coordinate.latitude},
          {"longitude", location.coordinate.longitude},
          {"altitude", location.isAltitudeKnown() ? Json(location.altitude) : Json(nullptr)}};
}

Json orNull(const std::optional<double>& number) {
  return number && std::isfinite(*number) ? Json(*number) : Json(nullptr);
}

Json lineGeoJson(const LinePositions& line, Json properties) {
  Json pieces = piecesOf(line);
  const bool isWhole = pieces.size() == 1;
  Json geometry{{"type", isWhole ? "LineString" : "MultiLineString"},
                {"coordinates", isWhole ? pieces.front() : pieces}};
  Json feature{{"type", "Feature"},
               {"geometry", std::move(geometry)},
               {"properties", std::move(properties)}};
  return {{"type", "FeatureCollection"}, {"features", Json::array({std::move(feature)})}};
}

}  // namespace zenivo
