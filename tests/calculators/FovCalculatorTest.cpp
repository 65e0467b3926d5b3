#include "calculators/FovCalculator.h"

#include <gtest/gtest.h>

#include <cmath>

#include "calculators/CalculatorTest.h"
#include "calculators/EquivalentFocalLengthCalculator.h"
#include "calculators/FovSubjectDistanceCalculator.h"

namespace zenivo {
namespace {

using enum FovField;

class FovCalculators : public CalculatorTest {
 protected:
  FovCalculators() { calculator.load(); }

  FovInverseCalculator calculator{environment()};
};

TEST_F(FovCalculators, EveryDrivenFieldReachesItsValue) {
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
  calculator.setFreeVariable(FovFreeVariable::subjectDistance);
  calculator.setActiveField(diagonalFov);
  calculator.save();
  FovInverseCalculator again(environment());
  again.load();
  EXPECT_EQ(again.freeVariable(), FovFreeVariable::subjectDistance);
  EXPECT_EQ(again.activeField(), diagonalFov);
  defaults.setInteger(99, settings::fov_lastInputVariable);
  defaults.setInteger(0, settings::fov_freeVariable);
  again.load();
  EXPECT_EQ(again.activeField(), horizontalAov) << "no field has that number";
}

TEST_F(FovCalculators, FixedLenses) {
  choose(5);  // 28 mm
  calculator.load();
  EXPECT_FALSE(calculator.isActiveFieldEnabled());
  EXPECT_FALSE(calculator.setSubjectDistance(4)) << "which nothing has to follow";
  FovSubjectDistanceCalculator distance(environment());
  distance.load();
  EXPECT_EQ(distance.setLens({0.05F}), cannotChangeFocalLength());
}

TEST_F(FovCalculators, MatchesTwoCameras) {
  choose(2, kSecondCameraKeys);
  EquivalentFocalLengthCalculator match(environment());
  match.load();
  EXPECT_EQ(match.camera2()->modelString(), "Beta C");
  EXPECT_EQ(match.results()[2].text, "31 mm");
  // Far from the hyperfocal distance depth goes with N c / F^2: 4 (30/19) (31/50)^2 = 2.43.
  EXPECT_EQ(match.results()[3].text, "f/2.4");
  EXPECT_FALSE(match.apertureRefusal());
  choose(4);
  match.load();
  EXPECT_EQ(match.setLens({0.1F}), cannotChangeFocalLength());
}

}  // namespace
}  // namespace zenivo
