#include "engine/PtMilkyWay.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "engine/Angles.h"
#include "engine/PtStar.h"

namespace zenivo {
namespace {

using ephemeris::PtMilkyWay;
using ephemeris::PtStar;
using ephemeris::VisibilityWindow;

constexpr double kDeltaT = 70.0 / 86400.0;

struct RandomSky {
  std::mt19937_64 random{20'170'310};
  PtPosition position() {
    return {std::uniform_real_distribution(-89.0, 89.0)(random),
            std::uniform_real_distribution(-180.0, 180.0)(random)};
  }
  double mjd() { return std::uniform_real_distribution(50000.0, 70000.0)(random); }
};

Vector3D pointOfPlane(const PtMilkyWayPosition& position, double angle) {
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  return {c * position.gc_.x() + s * position.east_.x(),
          c * position.gc_.y() + s * position.east_.y(),
          c * position.gc_.z() + s * position.east_.z()};
}

// The centre as computePosition has it, by its own road.
TEST(PtMilkyWay, PositionIsThatOfTheBody) {
  RandomSky sky;
  for (int i = 0; i < 200; ++i) {
    PtMilkyWay milkyWay(sky.position());
    const double mjd = sky.mjd();
    const PtMilkyWayPosition position = milkyWay.milkyWayPosition(mjd, kDeltaT);
    const PtPolar kept = milkyWay.horizontal();
    const double hourAngle = milkyWay.hourAngle();
    milkyWay.computePosition(true, mjd, kDeltaT);
    EXPECT_NEAR(position.azimuth_, milkyWay.horizontal().azimuth_, 1e-9);
    EXPECT_NEAR(position.elevation_, milkyWay.horizontal().elevation_, 1e-9);
    EXPECT_EQ(kept.azimuth_, position.azimuth_);
    EXPECT_EQ(kept.elevation_, position.elevation_);
    EXPECT_EQ(hourAngle, milkyWay.hourAngle());
  }
}

// Brute force over the plane's circle: the highest of 36,000 points.
TEST(PtMilkyWay, TheHighestPointOfThePlaneIsTheHighest) {
  RandomSky sky;
  for (int i = 0; i < 60; ++i) {
    PtMilkyWay milkyWay(sky.position());
    const PtMilkyWayPosition position = milkyWay.milkyWayPosition(sky.mjd(), kDeltaT);
    Vector3D highest(0, 0, -1);
    for (int step = 0; step < 36000; ++step) {
      const Vector3D point = pointOfPlane(position, step * 0.01 * kDegree);
      if (point.z() > highest.z()) highest = point;
    }
    // Near the zenith azimuths crowd: compare along the sky.
    const double apart = std::abs(angleDifference(position.gc_max_angle_azimuth_ / kDegree,
                                                  highest.phi() / kDegree)) *
                         std::cos(highest.theta());
    EXPECT_LT(apart, 0.02) << i;
    // The plane's top and its axis make a right angle.  Refraction of the axis,
    // half a degree at most, is left in.
    EXPECT_NEAR(position.gc_max_angle_ + highest.theta(), kPi / 2.0, 0.7 * kDegree) << i;
    EXPECT_EQ(std::abs(position.gc_angle_), position.gc_max_angle_);
  }
}

// The sign of gc_angle_ from the geometry: walk along the horizon from the foot of
// the plane nearer to the centre; the top is to the left or to the right.
TEST(PtMilkyWay, TheAngleTellsOnWhichSideTheCentreLies) {
  RandomSky sky;
  int left = 0;
  for (int i = 0; i < 200; ++i) {
    PtMilkyWay milkyWay(sky.position());
    const PtMilkyWayPosition position = milkyWay.milkyWayPosition(sky.mjd(), kDeltaT);
    double nearestFoot = 0;
    double nearest = 360;
    for (int step = 0; step < 36000; ++step) {
      const Vector3D here = pointOfPlane(position, step * 0.01 * kDegree);
      const Vector3D next = pointOfPlane(position, (step + 1) * 0.01 * kDegree);
      if ((here.z() < 0.0) == (next.z() < 0.0)) continue;
      const double apart = std::abs(angleDifference(here.phi() / kDegree, position.azimuth_));
      if (apart < nearest) {
        nearest = apart;
        nearestFoot = here.phi() / kDegree;
      }
    }
    if (std::abs(nearest - 90.0) < 1.0) continue;  // both feet are as near
    const double top = angleDifference(position.gc_max_angle_azimuth_ / kDegree, nearestFoot);
    EXPECT_EQ(position.gc_angle_ < 0.0, top < 0.0) << i;
    left += position.gc_angle_ < 0.0;
  }
  EXPECT_GT(left, 50);
  EXPECT_LT(left, 150);
}

// From 60 degrees south the centre never sets, from 62 north it never rises.  In
// between the window is held against the elevation sampled minute by minute.
TEST(PtMilkyWay, VisibilityWindowAgreesWithTheElevation) {
  RandomSky sky;
  int seen = 0;
  int unseen = 0;
  for (int i = 0; i < 150; ++i) {
    const PtPosition position = i == 0   ? PtPosition(-70.0, 0.0)
                                : i == 1 ? PtPosition(70.0, 0.0)
                                         : sky.position();
    PtMilkyWay milkyWay(position);
    const double dusk = sky.mjd();
    const double dawn = dusk + std::uniform_real_distribution(0.05, 0.6)(sky.random);
    const VisibilityWindow window = milkyWay.visibilityWindow(dusk, kDeltaT, dawn, dusk);
    double first = 0;
    double last = 0;
    for (double mjd = dusk; mjd <= dawn; mjd += 1.0 / 1440.0) {
      milkyWay.computePosition(true, mjd, kDeltaT);
      if (milkyWay.horizontal().elevation_ < 0.0) continue;
      if (first == 0) first = mjd;
      last = mjd;
    }
    // Grazing arcs and those that begin again before dawn prove nothing here.
    if (std::abs(position.latitude) > 57.0 && std::abs(position.latitude) < 65.0) continue;
    if (first == 0) {
      EXPECT_EQ(window.from, kAlwaysBelow) << i;
      EXPECT_EQ(window.to, kAlwaysBelow) << i;
      ++unseen;
      continue;
    }
    ++seen;
    EXPECT_NEAR((window.from - first) * 1440.0, 0.0, 5.0) << i << " lat " << position.latitude;
    if (window.to < dawn && last > window.to + 0.2) continue;
    EXPECT_NEAR((window.to - last) * 1440.0, 0.0, 5.0) << i << " lat " << position.latitude;
  }
  EXPECT_GT(seen, 40);
  EXPECT_GT(unseen, 20);
}

TEST(PtMilkyWay, WithoutDuskOrDawnNothingIsSeen) {
  PtMilkyWay milkyWay(PtPosition(45.0, 7.0));
  const double dusk = 60500.9;
  const double dawn = 60501.1;
  EXPECT_EQ(milkyWay.visibilityWindow(kNotThisDay, kDeltaT, dawn, kNotThisDay), VisibilityWindow());
  EXPECT_EQ(milkyWay.visibilityWindow(kAlwaysAbove, kDeltaT, dawn, kAlwaysAbove),
            VisibilityWindow());
  const VisibilityWindow noDawn = milkyWay.visibilityWindow(dusk, kDeltaT, kAlwaysAbove, dusk);
  EXPECT_EQ(noDawn.from, kAlwaysBelow);
  EXPECT_EQ(noDawn.to, kAlwaysBelow);
}

TEST(PtMilkyWay, UpAllTheTimeFromTheFarSouth) {
  PtMilkyWay milkyWay(PtPosition(-75.0, 0.0));
  const VisibilityWindow window = milkyWay.visibilityWindow(60500.0, kDeltaT, 60500.6, 60500.0);
  EXPECT_EQ(window, (VisibilityWindow{kAlwaysAbove, kAlwaysAbove, 60500.0, 60500.6}));
}

// A star put where an azimuth and elevation point, computed, is found there again:
// less the shift towards the zenith that its constant makes, 0.567 degrees times
// the cosine of the elevation, and 20 arcseconds of nutation.
TEST(PtStar, RoundTripThroughAzimuthAndElevation) {
  RandomSky sky;
  for (int i = 0; i < 300; ++i) {
    PtStar star(sky.position());
    const double mjd = sky.mjd();
    const double azimuth = std::uniform_real_distribution(0.0, 360.0)(sky.random);
    const double elevation = std::uniform_real_distribution(2.0, 85.0)(sky.random);
    const Vector3D place = star.equatorialFromHorizontal(mjd, kDeltaT, azimuth, elevation);
    star.setEquatorialPosition(place.phi(), place.theta());
    star.computePosition(true, mjd, kDeltaT);
    // tan of the zenith distance as seen: sin z / (cos z + p rho).
    const double z = (90.0 - elevation) * kDegree;
    const double shifted =
        std::atan2(std::sin(z), std::cos(z) + 0.009890619606703503 * star.getPosition().rho);
    const double expected = star.refractedElevation(90.0 - shifted / kDegree);
    EXPECT_NEAR(star.horizontal().elevation_, expected, 0.01) << i;
    EXPECT_NEAR(angularSeparation(azimuth, expected, star.horizontal().azimuth_,
                                  star.horizontal().elevation_) /
                    kDegree,
                0.0, 0.01)
        << i;
    EXPECT_NEAR(star.horizontal().distance_, 1.0, 1e-12);
    EXPECT_EQ(star.semiDiameter(), 0.0);
  }
}

// A star that has been moved must be searched anew, not remembered.
TEST(PtStar, RiseAndSetFollowTheStar) {
  PtStar star(PtPosition(45.0, 0.0));
  star.setEquatorialPosition(1.0, 0.3);
  const ephemeris::RiseSet first = star.riseSet(ephemeris::EventKind::riseSet, 60500.0, kDeltaT);
  star.setEquatorialPosition(1.0 + kPi / 6.0, 0.3);
  const ephemeris::RiseSet moved = star.riseSet(ephemeris::EventKind::riseSet, 60500.0, kDeltaT);
  // Two hours of right ascension, less 20 s for the sidereal day; a day rolls over.
  const double hours = (moved.rise - first.rise) * 24.0;
  EXPECT_NEAR(angleDifference(hours * 15.0, 30.0) / 15.0, 0.0, 0.08);
}

}  // namespace
}  // namespace zenivo
