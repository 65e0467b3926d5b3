#include "map/geodesy/Geodesic.h"

#include <gtest/gtest.h>

#include <cmath>

#include "map/geodesy/GeoMath.h"

namespace zenivo {
namespace {

// Karney (2013), table 2: the direct problem from 40 N along 30 degrees over 10,000 km.
TEST(Geodesic, KarneysWorkedExamples) {
  const GeodesicData end = Geodesic::wgs84().Direct(40, 0, 30, 10'000'000);
  EXPECT_NEAR(end.lat2, 41.79331020506, 1e-11);
  EXPECT_NEAR(end.lon2, 137.84490004377, 1e-11);
  EXPECT_NEAR(end.azi2, 149.09016931807, 1e-11);
  // Nearly antipodal, table 5: (-30, 0) to (29.9, 179.8).
  const GeodesicData way = Geodesic::wgs84().Inverse(-30, 0, 29.9, 179.8);
  EXPECT_NEAR(way.azi1, 161.890524736, 1e-9);
  EXPECT_NEAR(way.azi2, 18.090737246, 1e-9);
  EXPECT_NEAR(way.s12, 19989832.827610, 1e-6);
}

TEST(Geodesic, AnglesHaveOneName) {
  for (const double azimuth : {180.0, -180.0, 540.0, -0.0, 360.0, -360.0}) {
    const GeodesicData end = Geodesic::wgs84().Direct(0, -180, azimuth, 1000);
    for (const double angle : {end.azi1, end.azi2, end.lon1, end.lon2}) {
      EXPECT_GT(angle, -180) << azimuth;
      EXPECT_LE(angle, 180) << azimuth;
      EXPECT_FALSE(angle == 0 && std::signbit(angle)) << azimuth;
    }
  }
  EXPECT_EQ(GeoMath::AngDiff(1, -179), 180);
  EXPECT_EQ(GeoMath::atan2dWithY(-0.0, -1), 180);
  EXPECT_EQ(Geodesic::wgs84().Inverse(10, 360, 20, 0).s12,
            Geodesic::wgs84().Inverse(10, 0, 20, 0).s12);
}

TEST(Geodesic, EdgesOfTheEarth) {
  const Geodesic& earth = Geodesic::wgs84();
  const GeodesicData still = earth.Inverse(12, 34, 12, 34);
  EXPECT_EQ(still.s12, 0);
  EXPECT_EQ(still.azi1, still.azi2);
  EXPECT_NEAR(earth.Inverse(30, 0, -30, 180).s12, 20003931.4586, 1e-3);  // half a meridian
  for (double s = -2e7; s < 2e7; s += 1e6) EXPECT_EQ(earth.Direct(0, 5, 90, s).lat2, 0) << s;
  EXPECT_NEAR(earth.EllipsoidArea(), 510065621724088.4, 1);  // Karney (2013), section 6
  for (const double bad : {91.0, -91.0, std::nan(""), HUGE_VAL}) {
    EXPECT_TRUE(std::isnan(earth.Inverse(bad, 0, 0, 0).s12)) << bad;
    EXPECT_TRUE(std::isnan(earth.Direct(bad, 0, 0, 1000).lon2)) << bad;
    EXPECT_TRUE(std::isnan(earth.Direct(0, 0, 0, std::nan("")).lat2)) << bad;
  }
}

TEST(GeodesicLine, KnowsWhatItWasMadeFor) {
  using Mask = GeodesicMask;
  const Geodesic& earth = Geodesic::wgs84();
  GeodesicLine arcs = earth.Line(46, 7, 60, Mask::LATITUDE | Mask::LONGITUDE);
  arcs.SetDistance(1000);
  EXPECT_TRUE(std::isnan(arcs.a13()));
  EXPECT_TRUE(std::isnan(arcs.Position(1000, Mask::LATITUDE).lat2));
  const GeodesicData point = arcs.ArcPositionWithA12(1, Mask::LATITUDE);
  EXPECT_FALSE(std::isnan(point.lat2));
  EXPECT_TRUE(std::isnan(point.lon2) && std::isnan(point.s12));

  // A line made for its points alone still knows the end that it was made with.
  const GeodesicLine towards =
      earth.DirectLineWithLat1(46, 7, 420, 500'000, Mask::LATITUDE | Mask::LONGITUDE);
  EXPECT_EQ(towards.s13(), 500'000);
  EXPECT_EQ(towards.azi1(), 60);
  const GeodesicData end = towards.ArcPositionWithA12(towards.a13(), Mask::STANDARD);
  const GeodesicLine between = earth.InverseLine(46, 7, end.lat2, end.lon2, Mask::STANDARD);
  EXPECT_NEAR(between.s13(), 500'000, 1e-8);
  EXPECT_NEAR(between.azi1(), 60, 1e-12);
}

}  // namespace
}  // namespace zenivo
