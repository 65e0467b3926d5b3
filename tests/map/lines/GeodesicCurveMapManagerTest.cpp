#include "map/lines/GeodesicCurveMapManager.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace zenivo {
namespace {

constexpr Coordinate kHere{46.5, 7.9};

MapView mapAt(double zoom, double viewingAngle = 0) {
  return {.width = 400, .height = 300, .zoom = zoom, .viewingAngle = viewingAngle};
}

struct Counting : GeodesicCurveMapManagerListener {
  void recalculateGeodesicLines() override { ++calls; }
  int calls = 0;
};

std::size_t verticesTowardsAnAzimuth(const MapView& map) {
  GeodesicCurveMapManager lines;
  lines.mapDidMove(map);
  LinePositions positions;
  lines.calculatePositionsForLine(*lines.geodesicLineFrom(kHere, 120.0), positions);
  return positions.size();
}

std::size_t verticesBetweenPins(const MapView& map, double distance) {
  GeodesicCurveMapManager lines;
  lines.mapDidMove(map);
  const GeodesicData end = lines.geoide().Direct(kHere.latitude, kHere.longitude, 33, distance);
  LinePositions positions;
  lines.calculatePositionsForLine(*lines.geodesicLineFrom(kHere, Coordinate{end.lat2, end.lon2}),
                                  positions);
  return positions.size();
}

TEST(GeodesicCurveMapManager, AsManyPointsAsTheZoomShows) {
  EXPECT_EQ(verticesTowardsAnAzimuth({}), 41U);  // no map yet: 1000 km by 25
  for (const double zoom : {0.0, 4.49, 6.0, 9.4}) {
    EXPECT_EQ(verticesTowardsAnAzimuth(mapAt(zoom)), 41U) << zoom;
  }
  EXPECT_EQ(verticesTowardsAnAzimuth(mapAt(9.5)), 101U);
  EXPECT_EQ(verticesTowardsAnAzimuth(mapAt(15, 40)), 141U);  // 41 within 2 km, then 5 km apart
  EXPECT_EQ(verticesTowardsAnAzimuth(mapAt(9, 40)), 41U);
  EXPECT_EQ(verticesBetweenPins(mapAt(15, 40), 10), 2U);
  EXPECT_EQ(verticesBetweenPins(mapAt(15, 40), 1990), 40U);
  EXPECT_EQ(verticesBetweenPins(mapAt(15, 40), 4990), 42U);  // 41, then the end

  GeodesicCurveMapManager lines;
  lines.mapDidMove(mapAt(15));
  LinePositions meridian;
  lines.calculatePositionsForLine(*lines.geodesicLineFrom(Coordinate{90, 0}, Coordinate{-90, 0}),
                                  meridian);
  EXPECT_EQ(meridian.size(), 4001U);
}

TEST(GeodesicCurveMapManager, PointsLieOnTheGeodesicAtEqualSteps) {
  GeodesicCurveMapManager lines;
  lines.mapDidMove(mapAt(12));
  const auto line = lines.geodesicLineFrom(kHere, 75.0);
  LinePositions positions;
  lines.calculatePositionsForLine(*line, positions);
  ASSERT_EQ(positions.size(), 101U);
  for (std::size_t i = 0; i < positions.size(); ++i) {
    const GeodesicData way = lines.geoide().Inverse(kHere.latitude, kHere.longitude,
                                                    positions[i].latitude, positions[i].longitude);
    EXPECT_NEAR(way.s12, 5000.0 * static_cast<double>(i), 8.0);  // equal arcs, not distances
    if (i > 0) {
      EXPECT_NEAR(way.azi1, 75, 1e-6) << i;
    }
  }
}

TEST(GeodesicCurveMapManager, OnlyAnotherBandOrTiltIsTold) {
  GeodesicCurveMapManager lines;
  const auto listener = std::make_shared<Counting>();
  lines.setDelegate(listener);
  const struct {
    MapView map;
    int calls;
    int length;  // km
  } moves[] = {
      {{.width = 0, .height = 300, .zoom = 3}, 0, 1000},
      {mapAt(NAN), 0, 1000},
      {mapAt(8), 0, 1000},
      {mapAt(9.4), 0, 1000},
      {mapAt(9.6), 1, 500},
      {mapAt(18), 1, 500},
      {mapAt(18, 30), 2, 500},
      {mapAt(18, 50), 2, 500},
      {mapAt(5, 50), 3, 3000},
      {mapAt(7), 4, 3000},
      {mapAt(0), 5, 5000},
  };
  for (const auto& [map, calls, length] : moves) {
    lines.mapDidMove(map);
    EXPECT_EQ(listener->calls, calls) << map.zoom;
    EXPECT_EQ(lines.geodesicLineLength(), length * 1000) << map.zoom;
  }
}

TEST(GeodesicCurveMapManager, NoLineToNowhere) {
  GeodesicCurveMapManager lines;
  LinePositions positions{kHere};
  lines.calculatePositionsForLine(*lines.geodesicLineFrom(kHere, kInvalidCoordinate), positions);
  EXPECT_TRUE(positions.empty());
  lines.calculatePositionsForLine(*lines.geodesicLineFrom(kHere, NAN), positions);
  EXPECT_TRUE(positions.empty());
}

}  // namespace
}  // namespace zenivo
