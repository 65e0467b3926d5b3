#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "map/geodesy/Geodesic.h"
#include "place/LocationUtils.h"
#include "planner/SessionFixture.h"

namespace zenivo {

namespace testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A line that sets out from the observer, at 48 N 2 E, along an azimuth.
MATCHER_P(LeadsTo, azimuth, "") {
  if (arg.size() < 2) return false;
  const double along = Geodesic::wgs84().Inverse(48, 2, arg[1].latitude, arg[1].longitude).azi1;
  return std::abs(std::remainder(along - azimuth, 360)) < 1e-9;
}

class BlackPin : public Obstacle {
 public:
  void recalculateDataWithObserver(const ZVObserver& observer) override {
    distance = LocationUtils::greatCircleDistanceWithSource(observer.coordinate, coordinate) * 1000;
  }
  std::optional<AltitudeAboveBlackPin> altitudeAboveBlackPin(const ZVObserver&, const PtPolar& sun,
                                                             const PtPolar&) const override {
    return AltitudeAboveBlackPin{sun.elevation_, 0, distance};
  }

  double distance = 0;
};

class PlannerLines : public SessionTest {
 protected:
  PlannerLines() {
    pin->coordinate = {48, 2.01};
    pin->isVisible = true;
  }

  static PlannerSides sides() {
    PlannerSides given;
    given.geodesics = [] { return std::make_unique<GeodesicCurveMapManager>(); };
    return given;
  }

  Date noon = dateIn("GMT", 2026, 6, 21, 12);
  Session session{ZVObserver(Coordinate{48, 2}), TimeZone(), noon, sides()};
  std::shared_ptr<BlackPin> pin = std::make_shared<BlackPin>();
};

TEST_F(PlannerLines, AreDrawnOnlyWhenWanted) {
  EXPECT_THAT(session->getSunLinePositions(), IsEmpty());
  session->setDrawGeodesicLines(true);
  EXPECT_THAT(session->getSunLinePositions(), LeadsTo(session->getSunPosition().azimuth_));
  EXPECT_THAT(session->getMoonLinePositions(), LeadsTo(session->getMoonPosition().azimuth_));
  EXPECT_THAT(session->getExpandedSunLinePositions(), IsEmpty());
  EXPECT_THAT(session->getSunSizeFirstSideLinePositions(), IsEmpty());
  session->setDrawGeodesicLines(false);
  EXPECT_THAT(session->getSunLinePositions(), IsEmpty());
  EXPECT_THAT(session->getCurrentSunEvent()->riseLinePositions, IsEmpty());
  EXPECT_EQ(session->getCurrentSunEvent()->riseLine, nullptr);

  Session plain(ZVObserver(Coordinate{48, 2}), TimeZone(), noon);
  plain->setDrawGeodesicLines(true);
  EXPECT_FALSE(plain->drawGeodesicLines()) << "nothing to draw with";
}

TEST_F(PlannerLines, OppositeSideAndLimbs) {
  session->setDrawGeodesicLines(true);
  session->setExpandLines(true);
  session->mapSettings().moonLayer.showAngularDiameter = true;
  session->plannerDidChangeLayersVisiblity();
  const double azimuth = session->getMoonPosition().azimuth_;
  const double radius = session->getMoonAngularDiameter() / 2;
  EXPECT_THAT(session->getExpandedMoonLinePositions(), LeadsTo(azimuth - 180));
  EXPECT_THAT(session->getExpandedSunLinePositions(),
              LeadsTo(session->getSunPosition().azimuth_ - 180));
  EXPECT_THAT(session->getMoonSizeFirstSideLinePositions(), LeadsTo(azimuth + radius));
  EXPECT_THAT(session->getMoonSizeSecondSideLinePositions(), LeadsTo(azimuth - radius));
  EXPECT_THAT(session->getSunSizeSecondSideLinePositions(), IsEmpty());
  session->mapSettings().moonLayer.showAngularDiameter = false;
  session->plannerDidChangeLayersVisiblity();
  EXPECT_THAT(session->getMoonSizeFirstSideLinePositions(), IsEmpty());
}

TEST_F(PlannerLines, FollowTheMomentAndTheDay) {
  session->setDrawGeodesicLines(true);
  for (const int day : {21, 22}) {
    session->setCurrentDate(dateIn("GMT", 2026, 6, day, 8));
    EXPECT_THAT(session->getSunLinePositions(), LeadsTo(session->getSunPosition().azimuth_));
    const SunEvent& today = *session->getCurrentSunEvent();
    EXPECT_THAT(today.riseLinePositions, LeadsTo(today.riseAzimuth));
    EXPECT_THAT(today.setLinePositions, LeadsTo(today.setAzimuth));
    EXPECT_THAT(session->sunEvents()[0].riseLinePositions, IsEmpty());
  }
  session->setCurrentPosition({85, 2}, false);
  EXPECT_EQ(session->getCurrentSunEvent()->riseLine, nullptr) << "a day without a rise";
  EXPECT_THAT(session->getCurrentSunEvent()->riseLinePositions, IsEmpty());
}

TEST_F(PlannerLines, ToTheBlackPin) {
  session->setObstacle(pin);
  EXPECT_THAT(session.delegate->takeCalls(), ElementsAre("obstacle"));
  EXPECT_THAT(session->getBlackPinLinePositions(), IsEmpty());
  session->setDrawGeodesicLines(true);
  // Two points: it sets out towards the pin, and ends there.
  EXPECT_NEAR(session->getBlackPinLinePositions().back().latitude, 48, 1e-9);
  EXPECT_NEAR(session->getBlackPinLinePositions().back().longitude, 2.01, 1e-9);
  EXPECT_EQ(session->getBlackPinLinePositions().size(), 2U);
  session->recreateGeodesicModels();
  EXPECT_EQ(session->getBlackPinLinePositions().size(), 2U);
  pin->isVisible = false;
  session->setCurrentPosition({48, 2.1}, false);
  EXPECT_THAT(session->getBlackPinLinePositions(), IsEmpty());
}

TEST_F(PlannerLines, SizesAtTheBlackPin) {
  EXPECT_TRUE(std::isnan(session->getSunSizeInM()));
  session->setObstacle(pin);
  // The disk covers 9.15 m at a kilometre in June.
  EXPECT_NEAR(session->getSunSizeInM(), 9.15 * pin->distance / 1000, 0.01);
  EXPECT_EQ(session->altitudeAboveBlackPin()->apparentAltitudeObject,
            session->getSunPosition().elevation_);
  session->setCurrentPosition(pin->coordinate, false);
  EXPECT_EQ(session->getMoonSizeInM(), 0);
  session->setObstacle(nullptr);
  EXPECT_TRUE(std::isnan(session->getMoonSizeInM()));
}

}  // namespace
}  // namespace testing
}  // namespace zenivo
