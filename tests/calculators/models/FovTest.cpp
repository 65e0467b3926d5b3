#include "calculators/models/Fov.h"

#include <gtest/gtest.h>

#include <cmath>

#include "calculators/CalculatorFixture.h"
#include "calculators/RandomOptics.h"
#include "calculators/models/EquivalentFocalLength.h"

namespace zenivo {
namespace {

// Angles of view on 36 by 24 mm from the makers' data sheets of the Canon EF lenses 14 mm
// f/2.8L, 24 mm f/1.4L, 35 mm f/1.4L, 50 mm f/1.4, 85 mm f/1.2L, 135 mm f/2L, 200 mm f/2.8L,
// 300 mm f/4L and 400 mm f/5.6L, printed to a degree or to 5 minutes of arc.
TEST(Fov, AnglesOfTheDataSheets) {
  const struct {
    float millimetres;
    double horizontal, vertical, diagonal, printed;
  } sheets[] = {{14, 104, 81, 114, 0.6},
                {24, 74, 53, 84, 0.6},
                {35, 54, 38, 63, 0.6},
                {50, 40, 27, 46, 0.9},
                {85, 24, 16, 28.5, 0.2},
                {135, 15, 10, 18, 0.3},
                {200, 10, 7, 12, 0.4},
                {300, 6 + 50.0 / 60, 4 + 35.0 / 60, 8.25, 0.05},
                {400, 5 + 10.0 / 60, 3.5, 6 + 10.0 / 60, 0.08}};
  for (const auto& sheet : sheets) {
    Fov fov(36, 24, sheet.millimetres / 1000, 1, 1, 10);
    fov.calculateFOVValues();
    EXPECT_NEAR(fov.horizontalAov(), sheet.horizontal, sheet.printed) << sheet.millimetres;
    EXPECT_NEAR(fov.verticalAov(), sheet.vertical, sheet.printed) << sheet.millimetres;
    EXPECT_NEAR(fov.diagonalAov(), sheet.diagonal, sheet.printed) << sheet.millimetres;
  }
}

TEST(Fov, PortraitSwapsTheOutputsAndNotTheSensor) {
  Fov fov(36, 24, 0.05F, 1.4F, 0, 10);
  fov.calculateFOVValues();
  Fov upright = fov;
  upright.setIsPortrait(true);
  upright.calculateFOVValues();
  EXPECT_EQ(upright.sensorWidth(), 36);
  EXPECT_EQ(upright.horizontalAov(), fov.verticalAov());
  EXPECT_EQ(upright.verticalFov(), fov.horizontalFov());
  EXPECT_EQ(upright.diagonalAov(), fov.diagonalAov());
  EXPECT_EQ(upright.diagonalFov(), fov.diagonalFov());
  EXPECT_FLOAT_EQ(upright.aspectRatio() * fov.aspectRatio(), 1);
}

TEST(Fov, EdgesOfTheModel) {
  Fov fov(36, 24, 0, 1, 1, 10);
  fov.calculateFOVValues();
  EXPECT_EQ(fov.horizontalAov(), 180);
  EXPECT_TRUE(std::isinf(fov.diagonalFov()));
  fov.setFocalLength(0.05F);
  fov.setSubjectDistance(0);
  fov.calculateFOVValues();
  EXPECT_EQ(fov.horizontalFov() + fov.verticalFov() + fov.diagonalFov(), 0);
}

TEST(Fov, EveryInverseUndoesTheForwardModel) {
  RandomOptics random(5);
  for (int i = 0; i < 5000; ++i) {
    Fov fov(random.between(4, 60), random.between(4, 60), random.focalLength(),
            random.teleconverter(), random.teleconverter(), random.between(0.1, 1000));
    fov.setIsPortrait(random.coin());
    fov.calculateFOVValues();
    const double f = fov.focalLength(), s = fov.subjectDistance();
    for (const float back : {fov.calculateFocalLengthForHorizontalAoV(fov.horizontalAov()),
                             fov.calculateFocalLengthForVerticalAoV(fov.verticalAov()),
                             fov.calculateFocalLengthForDiagonalAoV(fov.diagonalAov()),
                             fov.calculateFocalLengthForHorizontalFoV(fov.horizontalFov()),
                             fov.calculateFocalLengthForVerticalFoV(fov.verticalFov()),
                             fov.calculateFocalLengthForDiagonalFoV(fov.diagonalFov())}) {
      EXPECT_NEAR(back, f, f * 2e-6);
    }
    for (const float back : {fov.calculateSubjectDistanceForHorizontalFoV(fov.horizontalFov()),
                             fov.calculateSubjectDistanceForVerticalFoV(fov.verticalFov()),
                             fov.calculateSubjectDistanceForDiagonalFoV(fov.diagonalFov())}) {
      EXPECT_NEAR(back, s, s * 1e-6);
    }
    // Width over distance is twice the tangent of half the angle.
    EXPECT_NEAR(fov.horizontalFov() / s, 2 * std::tan(fov.horizontalAov() * M_PI / 360),
                fov.horizontalFov() / s * 1e-5);
  }
}

TEST(FovSubjectDistance, TheObjectJustFits) {
  RandomOptics random(6);
  for (int i = 0; i < 2000; ++i) {
    FovSubjectDistance model(36, 24, random.focalLength(), random.teleconverter(), 1,
                             random.between(0.1, 100), random.between(0.1, 100));
    model.setIsPortrait(random.coin());
    const float distance = model.calculateMinimumSubjectDistance();
    Fov fov(36, 24, model.focalLength(), model.teleconverter1(), 1, distance);
    fov.setIsPortrait(model.isPortrait());
    fov.calculateFOVValues();
    const double widthLeft = fov.horizontalFov() / model.objectWidth();
    const double heightLeft = fov.verticalFov() / model.objectHeight();
    EXPECT_NEAR(std::min(widthLeft, heightLeft), 1, 1e-5) << "one side fits exactly, none less";
  }
  const FovSubjectDistance square(36, 24, 0.05F, 1, 1, 2, 2);
  EXPECT_FLOAT_EQ(square.calculateMinimumSubjectDistance(),
                  square.calculateMinimumDistanceForSensorSizeAndObjectSize(24, 2));
}

class Match : public testing::Test {
 protected:
  EquivalentFocalLength model(const SensorSize& second, float secondCoc, double N = 4) {
    return {kFullFrame, second, 0.03F, secondCoc, 0.05F, 1, 1, {N, N}, 5};
  }

  UserDefaults defaults_;
  ApertureManager stops_{defaults_};
};

// A Micro Four Thirds camera halves the focal length and two stops of aperture give the
// same picture: "Equivalence", Joseph James (2007).
TEST_F(Match, HalfTheSensorTakesHalfTheLensAndHalfTheStop) {
  EquivalentFocalLength half = model({18, 12}, 0.015F);
  const FocalLengthMatch& match = half.calculateMatch(stops_);
  EXPECT_FLOAT_EQ(match.horizontal, 0.025F);
  EXPECT_FLOAT_EQ(match.vertical, 0.025F);
  EXPECT_FLOAT_EQ(match.diagonal, 0.025F);
  EXPECT_EQ(match.fstop, 2);
  EXPECT_NEAR(match.camera2Fov->diagonalAov(), match.camera1Fov.diagonalAov(), 1e-3);
  EXPECT_NEAR(match.camera2Dof->depthOfField(), match.camera1Dof.depthOfField(), 0.02);
}

TEST_F(Match, TheSameCameraMatchesItself) {
  RandomOptics random(8);
  for (const Aperture& stop : stops_.stops()) {
    if (stop.fstop > 22) break;
    EquivalentFocalLength same(kFullFrame, kFullFrame, 0.03F, 0.03F,
                               std::round(random.between(20, 200)) / 1000, 1, 1, stop, 3);
    const FocalLengthMatch& match = same.calculateMatch(stops_);
    EXPECT_FLOAT_EQ(match.diagonal, same.focalLength());
    if (match.camera1Dof.depthOfField() > 0) {
      // Shown stops differ from geometric ones, so a neighbour may be the nearest.
      EXPECT_NEAR(match.fstop, stop.fstop, stop.fstop * 0.07);
    }
  }
}

TEST_F(Match, FixedSecondCameras) {
  EquivalentFocalLength fixedLens = model(kApsC, 0.019F);
  fixedLens.setCamera2FixedFocalLength(0.035F);
  const FocalLengthMatch& lens = fixedLens.calculateMatch(stops_);
  EXPECT_FALSE(lens.camera2Fov);
  EXPECT_EQ(lens.horizontal + lens.vertical + lens.diagonal, 0);
  ASSERT_TRUE(lens.camera2Dof);
  EXPECT_EQ(lens.camera2Dof->focalLength(), 0.035F) << "matched in depth at its own length";
  EXPECT_NEAR(lens.camera2Dof->depthOfField(), lens.camera1Dof.depthOfField(), 0.15);

  EquivalentFocalLength fixedAperture = model(kApsC, 0.019F);
  fixedAperture.setIsCamera2FixedAperture(true);
  EXPECT_FALSE(fixedAperture.calculateMatch(stops_).camera2Dof);
  EXPECT_TRUE(fixedAperture.match().camera2Fov);
}

TEST_F(Match, NoApertureGivesAnInfiniteDepth) {
  EquivalentFocalLength infinite = model(kApsC, 0.019F, 22);
  EXPECT_LT(infinite.calculateMatch(stops_).camera1Dof.depthOfField(), 0);
  EXPECT_EQ(infinite.match().fstop, 0);
  EXPECT_FALSE(infinite.match().camera2Dof);
}

TEST_F(Match, CirclesOfConfusionAreWholeMicrometres) {
  EquivalentFocalLength model;
  model.setCircleOfConfusionCamera1(0.030046F);
  model.setCircleOfConfusionCamera2(0.0186251F);
  EXPECT_FLOAT_EQ(model.circleOfConfusionCamera1(), 30e-6F);
  EXPECT_FLOAT_EQ(model.circleOfConfusionCamera2(), 19e-6F);
}

}  // namespace
}  // namespace zenivo
