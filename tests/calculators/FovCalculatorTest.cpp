#include "calculators/FovCalculator.h"

#include <gtest/gtest.h>

#include <cmath>

#include "calculators/CalculatorTest.h"
#include "calculators/EquivalentFocalLengthCalculator.h"
#include "calculators/FovSubjectDistanceCalculator.h"

namespace zenivo {
namespace {

using enum FovField;

class FovCalculators : public CalculatorTest {};

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
  const auto results = calculator.results();
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
    for (std::size_t i = 0; i < results.size(); ++i) {
      EXPECT_EQ(calculator.results()[i].text, results[i].text);
    }
  }
  EXPECT_EQ(settingsNow(), before);
}

TEST_F(FovCalculators, SettingsComeBack) {
  FovInverseCalculator calculator(environment());
  calculator.load();
  EXPECT_FALSE(calculator.setLens({0.2F, 1.4F, 1}));
  EXPECT_FALSE(calculator.setIsPortrait(true));
  calculator.setFreeVariable(FovFreeVariable::subjectDistance);
  calculator.setActiveField(diagonalFov);
  calculator.save();
  FovInverseCalculator again(environment());
  again.load();
  EXPECT_EQ(again.model().teleconverter(), 1.4F);
  EXPECT_TRUE(again.model().isPortrait());
  EXPECT_EQ(again.freeVariable(), FovFreeVariable::subjectDistance);
  EXPECT_EQ(again.activeField(), diagonalFov);
  defaults.setInteger(99, settings::fov_lastInputVariable);
  defaults.setInteger(0, settings::fov_freeVariable);
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
  distance.setObjectSize(3, 2);
  distance.setIsPortrait(true);
  distance.save();
  FovSubjectDistanceCalculator again(environment());
  again.load();
  EXPECT_EQ(again.results()[0].text, distance.results()[0].text);
  EXPECT_TRUE(again.model().isPortrait());
}

TEST_F(FovCalculators, MatchesTwoCameras) {
  choose(2, kSecondCameraKeys);
  EquivalentFocalLengthCalculator calculator(environment());
  calculator.load();
  EXPECT_EQ(calculator.camera2()->modelString(), "Beta C");
  EXPECT_EQ(calculator.results()[2].text, "31 mm");
  // Far from the hyperfocal distance depth goes with N c / F^2: 4 (30/19) (31/50)^2 = 2.43.
  EXPECT_EQ(calculator.results()[3].text, "f/2.4");
  EXPECT_FALSE(calculator.apertureRefusal());
  EXPECT_FALSE(calculator.setAperture(apertures.apertureForStop(22)));
  calculator.setSubjectDistance(50);
  EXPECT_EQ(calculator.apertureRefusal(), noAperture()) << "an infinite depth";
  EXPECT_EQ(calculator.results()[3].text, "--");
  EXPECT_FALSE(calculator.setLens({0.1F, 2, 1}));
  calculator.save();
  EquivalentFocalLengthCalculator again(environment());
  again.load();
  EXPECT_EQ(again.model().focalLength(), 0.1F);
  EXPECT_EQ(again.model().subjectDistance(), 50);

  choose(4, kSecondCameraKeys);
  calculator.load();
  EXPECT_EQ(calculator.results()[2].text, "--") << "a fixed lens";
  EXPECT_FALSE(calculator.apertureRefusal()) << "a fixed aperture is no refusal";
  choose(4);
  calculator.load();
  EXPECT_EQ(calculator.setLens({0.1F}), cannotChangeFocalLength());
  EXPECT_EQ(calculator.setAperture(apertures.apertureForStop(8)), cannotChangeAperture());
}

}  // namespace
}  // namespace zenivo
