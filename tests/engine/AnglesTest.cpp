#include "engine/Angles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "engine/SiderealTime.h"
#include "time/PtDateTime.h"

namespace zenivo {
namespace {

// Meeus, examples 12.a and 12.b: 1987 April 10, 13h10m46.3668s and, at 19h21m,
// 8h34m57.0896s.
TEST(SiderealTime, Meeus) {
  EXPECT_NEAR(greenwichSiderealTime(getMjd({1987, 4, 10, 0, 0})),
              13.0 + 10.0 / 60.0 + 46.3668 / 3600.0, 1e-7);
  EXPECT_NEAR(greenwichSiderealTime(getMjd({1987, 4, 10, 19, 21})),
              8.0 + 34.0 / 60.0 + 57.0896 / 3600.0, 1e-7);
}

TEST(SiderealTime, StaysInTheDayAndRunsOnOverMidnight) {
  std::mt19937_64 random(12);
  std::uniform_real_distribution<double> moment(-60'000.0, 130'000.0);
  for (int i = 0; i < 20'000; ++i) {
    const double mjd = moment(random);
    const double hours = greenwichSiderealTime(mjd);
    ASSERT_GE(hours, 0.0);
    ASSERT_LT(hours, 24.0);
    const double midnight = std::floor(mjd);
    const double gained =
        greenwichSiderealTime(midnight + 1e-6) - greenwichSiderealTime(midnight - 1e-6);
    ASSERT_NEAR(std::remainder(gained, 24.0), 2e-6 * 24.0657, 1e-7) << midnight;
  }
}

TEST(Angles, ShortWayRound) {
  const struct {
    double a, b, difference;
  } cases[] = {{10, 350, 20}, {350, 10, -20}, {180, 0, -180}, {0, 180, -180}, {-170, 170, 20},
               {720, 0, 0},   {0, 0, 0},      {359, 1, -2},   {1, 359, 2},    {-350, 350, 20}};
  for (const auto& [a, b, difference] : cases) {
    EXPECT_DOUBLE_EQ(angleDifference(a, b), difference) << a << " " << b;
  }
  const struct {
    double in, out;
  } angles[] = {{180, 180},      {-180, -180}, {190, -170}, {-190, 170},
                {540.5, -179.5}, {725, 5},     {-725, -5}};
  for (const auto& [in, out] : angles) EXPECT_DOUBLE_EQ(normalizeAngle180(in), out) << in;
}

TEST(Angles, RadiansStayInTheTurn) {
  for (const double angle : {-1e-17, -1e-300, 0.0, kTwoPi, -kTwoPi, 1e5, -1e5, 2 * kTwoPi}) {
    EXPECT_GE(normalizeRadians(angle), 0.0) << angle;
    EXPECT_LT(normalizeRadians(angle), kTwoPi) << angle;
  }
}

// Meeus, example 17.a: Arcturus and Spica, 32.7930 degrees.
TEST(Angles, Separation) {
  EXPECT_NEAR(angularDistance(213.9154, 19.1825, 201.2983, -11.1614) / kDegree, 32.7930, 1e-4);
  EXPECT_NEAR(angularDistance(0, 0, 180, 0), kPi, 1e-7);
  EXPECT_NEAR(angularDistance(10, 90, 200, -90), kPi, 1e-7);
  // Where the cosine rule has lost everything.
  EXPECT_NEAR(angularDistance(0, 0, 1e-7, 0) / kDegree, 1e-7, 1e-15);
}

}  // namespace
}  // namespace zenivo
