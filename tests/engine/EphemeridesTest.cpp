#include <gtest/gtest.h>

#include <cmath>

#include "engine/Angles.h"
#include "engine/Nutation.h"
#include "engine/PtDateTime.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo::ephemeris {
namespace {

double mjdOf(int year, int month, int day, int hour = 0) {
  return getMjd({year, month, day, hour, 0.0});
}

constexpr double kArcsecond = 1.0 / 3600.0;  // degree

// Meeus, Astronomical Algorithms (1998), examples 22.a and 12.a: 1987 April 10, 0h.
TEST(Nutation, Meeus) {
  const double T = julianCenturies(mjdOf(1987, 4, 10));
  const Nutation nutation = nutationAt(T);
  EXPECT_NEAR(nutation.longitude * kArcsecondsPerRadian, -3.788, 0.2);
  EXPECT_NEAR(nutation.obliquity * kArcsecondsPerRadian, 9.443, 0.1);
  EXPECT_NEAR(meanObliquity(T) / kDegree, 23.0 + 26.0 / 60.0 + 27.407 / 3600.0, 1e-6);
  PtSun sun;
  sun.computePosition(true, mjdOf(1987, 4, 10), 0.0);
  EXPECT_NEAR(sun.apparentSiderealTime(mjdOf(1987, 4, 10)), 13.0 + 10.0 / 60.0 + 46.1351 / 3600.0,
              0.02 / 3600.0);
}

TEST(Nutation, TheWrittenOutMatrixIsTheProductOfItsRotations) {
  for (const double T : {-2.0, -0.13, 0.0, 0.24, 1.7}) {
    const Nutation n = nutationAt(T);
    const double eps = 0.4090928 - 0.00022696 * T;
    const Matrix3D product =
        rotationX(-(eps + n.obliquity)) * rotationZ(-n.longitude) * rotationX(eps);
    EXPECT_EQ(n.matrix, product) << T;
  }
}

// Meeus, example 25.b: 1992 October 13, 0h TD, from the complete VSOP87.
TEST(PtSun, Meeus) {
  PtSun sun;
  const double mjd = mjdOf(1992, 10, 13);
  const Vector3D geometric = sun.eclipticPosition(true, julianCenturies(mjd));
  EXPECT_NEAR(geometric.phi() / kDegree, 199.907347, 2 * kArcsecond);
  EXPECT_NEAR(geometric.theta() / kDegree, 0.62 * kArcsecond, 0.5 * kArcsecond);
  EXPECT_NEAR(geometric.r(), 0.99760853, 2e-6);
  // The apparent place there has aberration, -20.5 arcseconds along the ecliptic.
  const Vector3D apparent = sun.equatorialPosition(true, mjd, 0.0);
  EXPECT_NEAR(apparent.phi() / kDegree, (13 + 13.0 / 60 + 30.749 / 3600) * 15, 0.0065);
  EXPECT_NEAR(apparent.theta() / kDegree, -(7 + 47.0 / 60 + 1.74 / 3600), 0.0065);
}

// Meeus, example 47.a: 1992 April 12, 0h TD, from the main terms of ELP2000-82.
TEST(PtMoon, Meeus) {
  PtMoon moon;
  const double mjd = mjdOf(1992, 4, 12);
  const Vector3D mean = moon.eclipticPosition(true, julianCenturies(mjd));
  EXPECT_NEAR(mean.phi() / kDegree, 133.162655, 0.003);
  EXPECT_NEAR(mean.theta() / kDegree, -3.229126, 0.003);
  EXPECT_NEAR(mean.r(), 368409.7, 20.0);
  const Vector3D apparent = moon.equatorialPosition(true, mjd, 0.0);
  EXPECT_NEAR(apparent.phi() / kDegree, 134.688470, 0.003);
  EXPECT_NEAR(apparent.theta() / kDegree, 13.768368, 0.003);
  EXPECT_NEAR(std::asin(moon.sinParallax(apparent.r())) / kDegree, 0.991990, 1e-4);
}

}  // namespace
}  // namespace zenivo::ephemeris
