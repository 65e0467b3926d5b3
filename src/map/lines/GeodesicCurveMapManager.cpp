#include "map/lines/GeodesicCurveMapManager.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zenivo {
namespace {

constexpr int kZoomOfDetail = 10;
constexpr unsigned kPoint = GeodesicMask::LATITUDE | GeodesicMask::LONGITUDE;

int lineLengthForZoom(int zoom) {
  if (zoom < 5) return 5'000'000;
  if (zoom < 8) return 3'000'000;
  if (zoom < kZoomOfDetail) return 1'000'000;
  return 500'000;
}

/// Points number `first` to `last` of a line cut into `pieces`.
void appendPositions(const GeodesicLine& line, int first, int last, int pieces,
                     LinePositions& positions) {
  const double step = line.a13() / pieces;
  for (int i = first; i <= last; ++i) {
    const GeodesicData point = line.ArcPositionWithA12(i * step, kPoint);
    positions.push_back({point.lat2, point.lon2});
  }
}

}  // namespace

void GeodesicCurveMapManager::setDelegate(std::weak_ptr<GeodesicCurveMapManagerListener> delegate) {
  delegate_ = std::move(delegate);
}

void GeodesicCurveMapManager::mapDidMove(const MapView& map) {
  if (!(map.width > 0 && map.height > 0) || !std::isfinite(map.zoom)) return;
  const auto zoom = static_cast<int>(std::lround(std::clamp(map.zoom, -1.0, 100.0)));
  const bool tilted = map.viewingAngle > 0;
  if (zoom == currentZoomLevelForGeodesics_ && tilted == isMapTilted_) return;
  currentZoomLevelForGeodesics_ = zoom;
  const int length = lineLengthForZoom(zoom);
  if (length == geodesicLineLength_ && tilted == isMapTilted_) return;
  isMapTilted_ = tilted;
  geodesicLineLength_ = length;
  geodesicLineSegmentLength_ = length < 1'000'000 ? 5'000 : length / 40;
  if (const auto delegate = delegate_.lock()) delegate->recalculateGeodesicLines();
}

std::shared_ptr<GeodesicLine> GeodesicCurveMapManager::geodesicLineFrom(const Coordinate& from,
                                                                        double azimuth) {
  return std::make_shared<GeodesicLine>(geoide().DirectLineWithLat1(
      from.latitude, from.longitude, azimuth, geodesicLineLength_, kPoint));
}

std::shared_ptr<GeodesicLine> GeodesicCurveMapManager::geodesicLineFrom(const Coordinate& from,
                                                                        const Coordinate& to) {
  return std::make_shared<GeodesicLine>(geoide().InverseLine(
      from.latitude, from.longitude, to.latitude, to.longitude, GeodesicMask::STANDARD));
}

bool GeodesicCurveMapManager::isDenseNearby() const {
  return isMapTilted_ && currentZoomLevelForGeodesics_ >= kZoomOfDetail;
}

void GeodesicCurveMapManager::calculatePositionsForLine(const GeodesicLine& line,
                                                        LinePositions& intoArray) const {
  intoArray.clear();
  const double distance = line.s13();
  if (!std::isfinite(distance) || !std::isfinite(line.a13())) return;
  const auto pieces = static_cast<int>(std::max(distance / geodesicLineSegmentLength_, 1.0));
  if (!isDenseNearby()) {
    intoArray.reserve(static_cast<std::size_t>(pieces) + 1);
    appendPositions(line, 0, pieces, pieces, intoArray);
    return;
  }
  constexpr int kMostDensePieces = 40;  // 2000 m of 50 m each
  static_assert(kMostDensePieces * MaxResolutionSegmentLength == DistanceWithMaxResolution);
  intoArray.reserve(static_cast<std::size_t>(kMostDensePieces + 1 + pieces));
  const double densePieces = distance / MaxResolutionSegmentLength;
  appendPositions(line, 0, std::clamp(static_cast<int>(densePieces), 1, kMostDensePieces),
                  static_cast<int>(std::max(densePieces, 1.0)), intoArray);
  if (distance <= DistanceWithMaxResolution) return;
  const auto firstCoarse =
      static_cast<int>(DistanceWithMaxResolution / geodesicLineSegmentLength_ + 1);
  appendPositions(line, firstCoarse, pieces, pieces, intoArray);
}

}  // namespace zenivo
