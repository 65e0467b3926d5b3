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

}  // namespace
}  // namespace zenivo
