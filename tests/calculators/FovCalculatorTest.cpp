#include "calculators/FovCalculator.h"

#include <gtest/gtest.h>

#include <cmath>

#include "calculators/CalculatorTest.h"
#include "calculators/EquivalentFocalLengthCalculator.h"

namespace zenivo {
namespace {

class FovCalculators : public CalculatorTest {
 protected:
  using enum FovField;
};

TEST_F(FovCalculators, EveryDrivenFieldReachesItsValue) {
  FovInverseCalculator calculator(environment());
  for (const auto variable : {FovFreeVariable::focalLength, FovFreeVariable::subjectDistance}) {
    calculator.load();
    calculator.setFreeVariable(variable);
    for (const FovField field : calculator.offeredFields()) {
      calculator.setActiveField(field);
      const float wanted = calculator.activeFieldValue() * 0.8F;
      EXPECT_FALSE(calculator.setActiveFieldValue(wanted));
      EXPECT_NEAR(calculator.activeFieldValue(), wanted, wanted * 1e-5);
      // It holds when the camera is turned upright.
      EXPECT_FALSE(calculator.setIsPortrait(!calculator.model().isPortrait()));
      EXPECT_NEAR(calculator.activeFieldValue(), wanted, wanted * 1e-5);
    }
  }
}

TEST_F(FovCalculators, RefusalsLeaveEverythingAsItWas) {
  FovInverseCalculator calculator(environment());
  calculator.load();
  const auto before = settingsNow();
  const struct {
    FovFreeVariable variable;
    FovField field;
    float wanted;
    Refusal refusal;
  } cases[] = {{FovFreeVariable::focalLength, horizontalAov, 0, noFocalLength()},
               {FovFreeVariable::focalLength, diagonalAov, 200, noFocalLength()},
               {FovFreeVariable::focalLength, verticalFov, -1, noFocalLength()},
               {FovFreeVariable::focalLength, verticalFov, 0, noFocalLength()},
               {FovFreeVariable::subjectDistance, diagonalFov, 0, noSubjectDistance()},
               {FovFreeVariable::subjectDistance, diagonalFov, std::nanf(""), noSubjectDistance()}};
  for (const auto& c : cases) {
    calculator.setFreeVariable(c.variable);
    calculator.setActiveField(c.field);
    EXPECT_EQ(calculator.setActiveFieldValue(c.wanted), c.refusal);
    EXPECT_EQ(calculator.model().focalLength(), 0.05F);
    EXPECT_EQ(calculator.model().subjectDistance(), 10);
  }
  EXPECT_EQ(settingsNow(), before);
}

TEST_F(FovCalculators, OddSettingsAreTheFirstChoice) {
  defaults.setInteger(99, settings::fov_lastInputVariable);
  FovInverseCalculator odd(environment());
  odd.load();
  EXPECT_EQ(odd.activeField(), horizontalAov);
}

TEST_F(FovCalculators, FixedLenses) {
  choose(5);  // 28 mm
  FovInverseCalculator calculator(environment());
  calculator.load();
  EXPECT_FLOAT_EQ(calculator.model().focalLength(), 0.028F);
  EXPECT_EQ(calculator.setLens({0.05F}), cannotChangeFocalLength());
  EXPECT_EQ(calculator.setActiveFieldValue(30), cannotChangeFocalLength());
  EXPECT_FALSE(calculator.isActiveFieldEnabled());
  EXPECT_FALSE(calculator.setSubjectDistance(4));
  FovSubjectDistanceCalculator distance(environment());
  distance.load();
  EXPECT_EQ(distance.setLens({0.05F}), cannotChangeFocalLength());
}

TEST_F(FovCalculators, MatchesTwoCameras) {
  choose(2, kSecondCameraKeys);
  EquivalentFocalLengthCalculator calculator(environment());
  calculator.load();
  EXPECT_EQ(calculator.camera2()->modelString(), "Beta C");
  EXPECT_FLOAT_EQ(calculator.model().match().diagonal, 0.031F);
  // Far from the hyperfocal distance depth goes with N c / F^2: 4 (30/19) (31/50)^2 = 2.43.
  EXPECT_FLOAT_EQ(calculator.model().match().fstop, 2.4F);
  EXPECT_FALSE(calculator.apertureRefusal());
  EXPECT_FALSE(calculator.setAperture(apertures.apertureForStop(22)));
  calculator.setSubjectDistance(50);
  EXPECT_EQ(calculator.apertureRefusal(), noAperture()) << "an infinite depth";
  EXPECT_FALSE(calculator.model().match().camera2Dof);

  choose(4, kSecondCameraKeys);
  calculator.load();
  EXPECT_EQ(calculator.model().match().diagonal, 0) << "a fixed lens";
  EXPECT_FALSE(calculator.apertureRefusal()) << "a fixed aperture is no refusal";
  choose(4);
  calculator.load();
  EXPECT_EQ(calculator.setLens({0.1F}), cannotChangeFocalLength());
  EXPECT_EQ(calculator.setAperture(apertures.apertureForStop(8)), cannotChangeAperture());
}

}  // namespace
}  // namespace zenivo
