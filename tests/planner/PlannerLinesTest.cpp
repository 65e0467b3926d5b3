#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "planner/SessionFixture.h"

namespace zenivo {

/// As much of a line as these tests need: where it leads.
class GeodesicLine {
 public:
  explicit GeodesicLine(double direction) : azimuth(direction) {}

  double azimuth;
};

namespace testing {
namespace {

using ::testing::DoubleEq;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Gives each line one point, whose latitude tells the azimuth.
class FakeGeodesics : public GeodesicCurveMapManager {
 public:
  std::shared_ptr<GeodesicLine> geodesicLineFrom(const Coordinate& /*from*/,
                                                 double azimuth) override {
    return std::make_shared<GeodesicLine>(azimuth);
  }
  std::shared_ptr<GeodesicLine> geodesicLineFrom(const Coordinate& /*from*/,
                                                 const Coordinate& to) override {
    return std::make_shared<GeodesicLine>(to.longitude);
  }
  void calculatePositionsForLine(GeodesicLine& line, LinePositions& intoArray) override {
    intoArray = {{line.azimuth, 0}};
  }
};

std::vector<double> azimuths(const LinePositions& positions) {
  std::vector<double> list;
  for (const Coordinate& position : positions) list.push_back(position.latitude);
  return list;
}

class BlackPin : public Obstacle {
 public:
  void recalculateDataWithObserver(const ZVObserver& /*observer*/) override {}
  std::optional<AltitudeAboveBlackPin> altitudeAboveBlackPin(
      const ZVObserver& /*observer*/, const PtPolar& /*sun*/,
      const PtPolar& /*moon*/) const override {
    return std::nullopt;
  }
};

class PlannerLines : public SessionTest {
 protected:
  static PlannerSides sides() {
    PlannerSides given;
    given.geodesics = [] { return std::make_unique<FakeGeodesics>(); };
    return given;
  }

  Session session{ZVObserver(Coordinate{48, 2}), TimeZone(), dateIn("GMT", 2026, 3, 20, 9),
                  sides()};
};

TEST_F(PlannerLines, AreDrawnOnlyWhenWanted) {
  EXPECT_THAT(session->getSunLinePositions(), IsEmpty());
  session->setDrawGeodesicLines(true);
  EXPECT_THAT(azimuths(session->getSunLinePositions()),
              ElementsAre(session->getSunPosition().azimuth_));
  EXPECT_THAT(azimuths(session->getMoonLinePositions()),
              ElementsAre(session->getMoonPosition().azimuth_));
  EXPECT_THAT(session->getExpandedSunLinePositions(), IsEmpty());
  EXPECT_THAT(session->getSunSizeFirstSideLinePositions(), IsEmpty());
  const SunEvent& sun = *session->getCurrentSunEvent();
  EXPECT_THAT(azimuths(sun.riseLinePositions), ElementsAre(sun.riseAzimuth));
  EXPECT_THAT(azimuths(sun.setLinePositions), ElementsAre(sun.setAzimuth));

  session->setDrawGeodesicLines(false);
  EXPECT_THAT(session->getSunLinePositions(), IsEmpty());
  EXPECT_THAT(session->getCurrentSunEvent()->riseLinePositions, IsEmpty());
  EXPECT_EQ(session->getCurrentSunEvent()->riseLine, nullptr);

  Session plain(ZVObserver(Coordinate{48, 2}), TimeZone(), dateIn("GMT", 2026, 3, 20, 9));
  plain->setDrawGeodesicLines(true);
  EXPECT_FALSE(plain->drawGeodesicLines()) << "nothing to draw with";
}

TEST_F(PlannerLines, OppositeSideAndLimbs) {
  session->setDrawGeodesicLines(true);
  session->setExpandLines(true);
  session->mapSettings().moonLayer.showAngularDiameter = true;
  session->plannerDidChangeLayersVisiblity();
  const double azimuth = session->getMoonPosition().azimuth_;
  const double diameter = session->getMoonAngularDiameter();
  EXPECT_THAT(azimuths(session->getExpandedMoonLinePositions()), ElementsAre(azimuth - 180));
  EXPECT_THAT(azimuths(session->getExpandedSunLinePositions()),
              ElementsAre(session->getSunPosition().azimuth_ - 180));
  EXPECT_THAT(azimuths(session->getMoonSizeFirstSideLinePositions()),
              ElementsAre(DoubleEq(azimuth + diameter / 2)));
  EXPECT_THAT(azimuths(session->getMoonSizeSecondSideLinePositions()),
              ElementsAre(DoubleEq(azimuth - diameter / 2)));
  EXPECT_THAT(session->getSunSizeSecondSideLinePositions(), IsEmpty());
  session->mapSettings().moonLayer.showAngularDiameter = false;
  session->plannerDidChangeLayersVisiblity();
  EXPECT_THAT(session->getMoonSizeFirstSideLinePositions(), IsEmpty());
}

TEST_F(PlannerLines, FollowTheMomentAndTheDay) {
  session->setDrawGeodesicLines(true);
  session->setCurrentDate(dateIn("GMT", 2026, 3, 21, 8));
  EXPECT_THAT(azimuths(session->getSunLinePositions()),
              ElementsAre(session->getSunPosition().azimuth_));
  const SunEvent& today = *session->getCurrentSunEvent();
  EXPECT_THAT(azimuths(today.riseLinePositions), ElementsAre(today.riseAzimuth));
  EXPECT_THAT(session->sunEvents()[0].riseLinePositions, IsEmpty());
  // A day without a rise has no line to it.
  session->setCurrentPosition({85, 2}, false);
  session->setCurrentDate(dateIn("GMT", 2026, 6, 21, 8));
  EXPECT_EQ(session->getCurrentSunEvent()->riseLine, nullptr);
  EXPECT_THAT(session->getCurrentSunEvent()->riseLinePositions, IsEmpty());
}

TEST_F(PlannerLines, ToTheBlackPin) {
  const auto pin = std::make_shared<BlackPin>();
  pin->coordinate = {48, 2.5};
  pin->isVisible = true;
  session->setObstacle(pin);
  EXPECT_THAT(session->getBlackPinLinePositions(), IsEmpty());
  session->setDrawGeodesicLines(true);
  EXPECT_THAT(azimuths(session->getBlackPinLinePositions()), ElementsAre(2.5));
  session->recreateGeodesicModels();
  EXPECT_THAT(azimuths(session->getBlackPinLinePositions()), ElementsAre(2.5));
  pin->isVisible = false;
  session->setCurrentPosition({48, 2.1}, false);
  EXPECT_THAT(session->getBlackPinLinePositions(), IsEmpty());
}

}  // namespace
}  // namespace testing
}  // namespace zenivo
