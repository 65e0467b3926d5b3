#include "place/LocationUtils.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace zenivo {
namespace {

TEST(LocationUtils, GreatCircleDistances) {
  const auto distance = [](Coordinate from, Coordinate to) {
    return LocationUtils::greatCircleDistanceWithSource(from, to);
  };
  // Meeus, Astronomical Algorithms (1998), example 11.c: Paris Observatory to the US
  // Naval Observatory, 6166 km on the same arc for a radius of 6371 km.
  EXPECT_NEAR(distance({48.836389, 2.337222}, {38.921389, -77.065556}), 6166 * 6378.137 / 6371,
              1.0);
  // A quarter and half of the way round.
  EXPECT_NEAR(distance({90, 0}, {0, 57}), 6378.137 * std::acos(0.0), 1e-9);
  EXPECT_NEAR(distance({0, -90}, {0, 90}), 6378.137 * std::acos(-1.0), 1e-9);
  // Across the date line.
  EXPECT_NEAR(distance({0, 179.5}, {0, -179.5}), 6378.137 * std::acos(-1.0) / 180, 1e-6);
}

TEST(LocationUtils, RoundingNeverTakesADistanceOutOfTheRange) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> latitude(-90, 90), longitude(-180, 180), step(-1e-9, 1e-9);
  for (int i = 0; i < 100'000; ++i) {
    const Coordinate from{latitude(random), longitude(random)};
    const Coordinate near{from.latitude, from.longitude + step(random)};
    const Coordinate opposite{-from.latitude, from.longitude + 180 + step(random)};
    EXPECT_LT(LocationUtils::greatCircleDistanceWithSource(from, near), 0.001);
    EXPECT_GT(LocationUtils::greatCircleDistanceWithSource(from, opposite), 20037.0);
  }
}

TEST(LocationUtils, DerivedPositions) {
  // Vincenty's formula on WGS84: the Flinders Peak to Buninyong line of Geoscience
  // Australia's worked example (GDA94 technical manual, chapter 4), 54,972.271 m.
  const Coordinate flinders{-37.951033417, 144.424867889};
  const Coordinate buninyong =
      LocationUtils::calculateDerivedPositionFromSource(flinders, 54972.271F, 306.8681583F);
  EXPECT_NEAR(buninyong.latitude, -37.652821139, 1e-6);  // single precision arguments
  EXPECT_NEAR(buninyong.longitude, 143.926495528, 1e-6);
  EXPECT_EQ(LocationUtils::calculateDerivedPositionFromSource({NAN, 0}, 1, 0).latitude,
            kInvalidCoordinate.latitude);
}

TEST(LocationUtils, BearingsAndTheirNames) {
  EXPECT_FLOAT_EQ(LocationUtils::initialBearingFrom({0, 0}, {0, 10}), 90);
  EXPECT_FLOAT_EQ(LocationUtils::initialBearingFrom({10, 5}, {-10, 5}), 180);
  EXPECT_EQ(LocationUtils::initialBearingFrom({0, 0}, {10, -1e-9}), 0);  // not 360
  const struct {
    double bearing;
    const char* name;
  } cases[] = {{0, "N"},      {22.5, "N"},  {22.6, "NE"}, {67.5, "E"},  {112.5, "E"},
               {157.5, "S"},  {202.5, "S"}, {230, "SW"},  {247.5, "W"}, {292.5, "W"},
               {337.4, "NW"}, {337.5, "N"}, {360, "N"},   {-1, "--"},   {NAN, "--"}};
  for (const auto& [bearing, name] : cases) {
    EXPECT_EQ(LocationUtils::cardinalNameForBearing(bearing), name) << bearing;
  }
}

TEST(LocationUtils, HorizonOfTheSea) {
  EXPECT_EQ(LocationUtils::distanceToHorizon(0), 0);
  EXPECT_NEAR(LocationUtils::distanceToHorizon(1.6).value(), 4.88, 0.005);
  EXPECT_EQ(LocationUtils::distanceToHorizon(-0.1), std::nullopt);
}

TEST(LocationUtils, CoordinatesAsText) {
  const struct {
    Coordinate point;
    const char* decimal;
    const char* minutes;
    const char* seconds;
  } cases[] = {
      {{41.385064, -2.5},
       "41.385064° N, 2.500000° W",
       "41° 23.1′ N, 2° 30′ W",
       "41° 23′ 6.23″ N, 2° 30′ 0″ W"},
      {{-0.0000001, 179.9999999},
       "0.000000° N, 180.000000° E",
       "0° 0′ N, 180° 0′ E",
       "0° 0′ 0″ N, 180° 0′ 0″ E"},
      {{-33.99999, 18.0166666},
       "33.999990° S, 18.016667° E",
       "34° 0′ S, 18° 1′ E",
       "33° 59′ 59.96″ S, 18° 1′ 0″ E"},
  };
  for (const auto& [point, decimal, minutes, seconds] : cases) {
    using enum CoordinateSystem;
    EXPECT_EQ(LocationUtils::latLonStringWithCoordinate(point, decimalDegrees), decimal);
    EXPECT_EQ(LocationUtils::latLonStringWithCoordinate(point, degreesMinutes), minutes);
    EXPECT_EQ(LocationUtils::latLonStringWithCoordinate(point, degreesMinutesSeconds), seconds);
  }
}

}  // namespace
}  // namespace zenivo
