#include "map/lines/GeodeticCalculator.h"

#include <gtest/gtest.h>

#include <GeographicLib/LocalCartesian.hpp>
#include <algorithm>
#include <cmath>
#include <iostream>
#include <random>

#include "engine/Angles.h"
#include "map/geodesy/Geodesic.h"

namespace zenivo {
namespace {

// The level frame of the source (GeographicLib's LocalCartesian): the straight line's
// elevation in it, to which refraction adds half a seventh of the arc.
TEST(GeodeticCalculator, ElevationAgainstTheLevelFrame) {
  std::mt19937_64 random(82);
  std::uniform_real_distribution<double> latitude(-89, 89), longitude(-180, 180),
      altitude(-300, 4800), azimuth(0, 360), distance(1000, 300'000);
  double worst = 0;
  for (int i = 0; i < 3000; ++i) {
    const Coordinate from{latitude(random), longitude(random)};
    const double towards = i % 3 == 0 ? 90.0 * (i % 4) : azimuth(random);
    const double s = distance(random), h1 = altitude(random), h2 = altitude(random);
    const GeodesicData end = Geodesic::wgs84().Direct(from.latitude, from.longitude, towards, s);
    const GeographicLib::LocalCartesian level(from.latitude, from.longitude, h1);
    double east, north, up;
    level.Forward(end.lat2, end.lon2, h2, east, north, up);
    const GeodeticCurve curve =
        GeodeticCalculator::geodeticCurveBetweenSource(from, h1, {end.lat2, end.lon2}, h2);
    const double straight = std::atan2(up, std::hypot(east, north)) / kDegree;
    // On a ball of the mean radius of the direction, known to 0.4 %.
    const double bent = s / 6371e3 / 14 / kDegree;
    EXPECT_NEAR(curve.apparentElevation, straight + bent, 0.007 * bent + 1e-9) << i;
    worst = std::max(worst, std::abs(curve.apparentElevation - straight - bent));
    // Raised to the mean altitude, distances grow by it over the radius.
    const double raised = s * (1 + (h1 + h2) / 2 / 6371e3);
    EXPECT_NEAR(std::sqrt(curve.distance * curve.distance - (h2 - h1) * (h2 - h1)), raised,
                1e-5 * s);
    EXPECT_NEAR(std::remainder(curve.startAzimuth - end.azi1, 360), 0, 1e-5);
    EXPECT_NEAR(std::remainder(curve.endAzimuth - end.azi2 - 180, 360), 0, 1e-5);
  }
  std::cout << "worst miss: elevation of a pin " << worst << " degree, refraction included\n";
}

TEST(GeodeticCalculator, TheSamePointHasNoAzimuth) {
  const GeodeticCurve up =
      GeodeticCalculator::geodeticCurveBetweenSource({46, 7}, 100, {46, 7}, 350);
  EXPECT_EQ(up.startAzimuth, GeodeticCurve::kNoAzimuth);
  EXPECT_EQ(up.endAzimuth, GeodeticCurve::kNoAzimuth);
  EXPECT_EQ(up.distance, 250);
  EXPECT_EQ(up.apparentElevation, 0);
  const GeodeticCurve nowhere =
      GeodeticCalculator::geodeticCurveBetweenSource({46, 7}, 0, {NAN, 7}, 0);
  EXPECT_TRUE(std::isnan(nowhere.distance));
}

TEST(GeodeticCalculator, EarthRadii) {
  EXPECT_EQ(GeodeticCalculator::calculateEarthRadiusForLatitude(0), 6378137.0);
  EXPECT_NEAR(GeodeticCalculator::calculateEarthRadiusForLatitude(90), 6356752.3142, 1e-4);
  // NIMA TR8350.2: the ellipsoid's mean radius of semi-axes falls between.
  EXPECT_NEAR(GeodeticCalculator::calculateEarthRadiusForLatitude(45), 6367489.54, 0.01);
}

// The height found at an elevation is seen at that elevation, and the way there closes the
// triangle with the two radii.
TEST(GeodeticCalculator, HeightAndElevationUndoEachOther) {
  std::mt19937_64 random(83);
  std::uniform_real_distribution<double> distance(10, 2e6), elevation(-5, 70), altitude(-400, 8000);
  constexpr double R = 6371000;
  for (int i = 0; i < 5000; ++i) {
    const double d = distance(random), e = elevation(random), r = altitude(random),
                 b = altitude(random);
    const auto over =
        GeodeticCalculator::calculateHeightAboveTerrainWithPin2PinDistance(d, R, e, r, b);
    ASSERT_TRUE(over) << i;
    EXPECT_NEAR(GeodeticCalculator::calculateElevationAboveTerrainWithPin2PinDistance(
                    d, R, over->height, r, b),
                e, 1e-8)
        << i;
    const double s = over->distanceToObject;
    EXPECT_NEAR(std::sqrt((R + r) * (R + r) + s * s + 2 * (R + r) * s * std::sin(e * kDegree)),
                R + b + over->height, 1e-9 * (R + s))
        << i;
  }
  EXPECT_FALSE(GeodeticCalculator::calculateHeightAboveTerrainWithPin2PinDistance(
      R * 30.1 * kDegree, R, 60, 0, 0));
}

}  // namespace
}  // namespace zenivo
