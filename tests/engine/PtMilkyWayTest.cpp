#include "engine/PtMilkyWay.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "engine/Angles.h"
#include "engine/PtStar.h"

namespace zenivo {
namespace {

using ephemeris::EventKind;
using ephemeris::PtMilkyWay;
using ephemeris::PtStar;
using ephemeris::VisibilityWindow;

constexpr double kDeltaT = 70.0 / 86400.0;

struct RandomSky {
  std::mt19937_64 random{20'170'310};
  double between(double a, double b) { return std::uniform_real_distribution(a, b)(random); }
  PtPosition position() { return {between(-89.0, 89.0), between(-180.0, 180.0)}; }
  double mjd() { return between(50000.0, 70000.0); }
};

/// The galactic plane walked around in steps of 0.01 degrees.
struct WalkAroundPlane {
  explicit WalkAroundPlane(const PtMilkyWayPosition& position) {
    double lastHeight = 0;
    for (int step = 0; step <= 36000; ++step) {
      const double c = std::cos(step * 0.01 * kDegree);
      const double s = std::sin(step * 0.01 * kDegree);
      const Vector3D here(c * position.gc_.x() + s * position.east_.x(),
                          c * position.gc_.y() + s * position.east_.y(),
                          c * position.gc_.z() + s * position.east_.z());
      if (here.z() > highest.z()) highest = here;
      const double apart = std::abs(angleDifference(here.phi() / kDegree, position.azimuth_));
      const bool onHorizon = step > 0 && (here.z() < 0.0) != (lastHeight < 0.0);
      if (onHorizon && apart < footApart) {
        footApart = apart;
        foot = here.phi() / kDegree;
      }
      lastHeight = here.z();
    }
  }

  Vector3D highest{0, 0, -1};
  double foot = 0;         // azimuth of the foot nearer to the centre, degrees
  double footApart = 360;  // how far from the centre's azimuth
};

TEST(PtMilkyWay, TheHighestPointAndTheSideOfThePlane) {
  RandomSky sky;
  int left = 0;
  for (int i = 0; i < 100; ++i) {
    PtMilkyWay milkyWay(sky.position());
    const PtMilkyWayPosition position = milkyWay.milkyWayPosition(sky.mjd(), kDeltaT);
    const WalkAroundPlane walk(position);
    const double top = position.gc_max_angle_azimuth_ / kDegree;
    // Near the zenith azimuths crowd: compare along the sky.
    const double apart = angleDifference(top, walk.highest.phi() / kDegree);
    EXPECT_NEAR(apart * std::cos(walk.highest.theta()), 0.0, 0.02) << i;
    // The plane's top and its axis make a right angle, refraction of the axis left in.
    EXPECT_NEAR(position.gc_max_angle_ + walk.highest.theta(), kPi / 2.0, 0.7 * kDegree) << i;
    EXPECT_EQ(std::abs(position.gc_angle_), position.gc_max_angle_);
    if (std::abs(walk.footApart - 90.0) < 1.0) continue;  // both feet are as near
    EXPECT_EQ(position.gc_angle_ < 0.0, angleDifference(top, walk.foot) < 0.0) << i;
    left += position.gc_angle_ < 0.0;
  }
  EXPECT_GT(left, 25);
  EXPECT_LT(left, 75);
}

// The centre is at 266.405 -28.936 (J2000), the northern pole at 192.859 +27.128: at the
// Earth's pole, where declinations are elevations, and by refraction of 0.03 degrees.
TEST(PtMilkyWay, StandsWhereTheCatalogueHasIt) {
  PtMilkyWay milkyWay(PtPosition(-90.0, 0.0));
  milkyWay.computePosition(true, 51544.5, kDeltaT);
  EXPECT_NEAR(milkyWay.equatorial().phi() / kDegree, 266.405, 0.012);
  EXPECT_NEAR(milkyWay.equatorial().theta() / kDegree, -28.936, 0.012);
  EXPECT_NEAR(milkyWay.horizontal().elevation_, 28.97, 0.012);
  EXPECT_EQ(milkyWay.semiDiameter(), 0.0);
  milkyWay.setPosition(PtPosition(90.0, 0.0));
  const PtMilkyWayPosition north = milkyWay.milkyWayPosition(51544.5, kDeltaT);
  EXPECT_NEAR(north.gc_max_angle_ / kDegree, 27.128 + 0.03, 0.012);
  EXPECT_NEAR(north.elevation_, -28.936, 0.012);
}

// No dusk to search from, or no dawn to search to; and the far south, where the
// centre never sets.
TEST(PtMilkyWay, WindowsAtTheSentinels) {
  PtMilkyWay milkyWay(PtPosition(45.0, 7.0));
  for (const double dusk : {kNotThisDay, kAlwaysAbove, kAlwaysBelow}) {
    EXPECT_EQ(milkyWay.visibilityWindow(dusk, 60501.1, kDeltaT), VisibilityWindow()) << dusk;
  }
  for (const double dawn : {kNotThisDay, kAlwaysAbove, kAlwaysBelow}) {
    for (double dusk = 60500.1; dusk < 60501.0; dusk += 0.2) {
      const VisibilityWindow window = milkyWay.visibilityWindow(dusk, dawn, kDeltaT);
      EXPECT_TRUE(window.from == kAlwaysBelow && window.to == kAlwaysBelow) << dawn;
    }
  }
  milkyWay.setPosition(PtPosition(-75.0, 0.0));
  EXPECT_EQ(milkyWay.visibilityWindow(60500.0, 60500.6, kDeltaT),
            (VisibilityWindow{kAlwaysAbove, kAlwaysAbove, 60500.0, 60500.6}));
}

// The constant of the stars, a horizon of -34 arcminutes taken for a parallax, shifts them
// towards the zenith: by 0.5667 degrees on the horizon.
TEST(PtStar, StandsAShiftTowardsTheZenith) {
  PtStar star(PtPosition(0.0, 0.0));
  const Vector3D east = star.equatorialFromHorizontal(60500.0, kDeltaT, 90.0, 0.0);
  star.setEquatorialPosition(east.phi(), east.theta());
  star.computePosition(true, 60500.0, kDeltaT);
  EXPECT_NEAR(star.horizontal().elevation_, star.refractedElevation(0.5667), 0.01);
  EXPECT_NEAR(star.horizontal().azimuth_, 90.0, 0.01);
  EXPECT_EQ(star.semiDiameter(), 0.0);
}

// A star that has been moved is searched anew, not remembered: two hours of right
// ascension are two hours later, or a sidereal day less.
TEST(PtStar, RiseAndSetFollowTheStar) {
  PtStar star(PtPosition(45.0, 0.0));
  star.setEquatorialPosition(1.0, 0.3);
  const double first = star.riseSet(EventKind::riseSet, 60500.0, kDeltaT).rise;
  star.setEquatorialPosition(1.0 + kPi / 6.0, 0.3);
  const double moved = star.riseSet(EventKind::riseSet, 60500.0, kDeltaT).rise;
  EXPECT_NEAR(angleDifference((moved - first) * 360.0, 30.0) / 15.0, 0.0, 0.08);
}

}  // namespace
}  // namespace zenivo
