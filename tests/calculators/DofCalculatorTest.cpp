#include "calculators/DofCalculator.h"

#include <gtest/gtest.h>

#include <cmath>

#include "app/settings/SettingsKeys.h"
#include "calculators/CalculatorTest.h"
#include "calculators/CocForm.h"
#include "calculators/DepthTables.h"

namespace zenivo {
namespace {

/// All that an edit could change.
std::vector<double> stateOf(const DofInverseCalculator& calculator) {
  const Dof& dof = calculator.model();
  return {dof.focalLength(),
          dof.aperture().fstop,
          dof.aperture().value,
          dof.subjectDistance(),
          dof.teleconverter1(),
          dof.teleconverter2(),
          dof.hyperfocal(),
          dof.dofNearLimit(),
          dof.dofFarLimit(),
          dof.inverseDepthOfField(),
          static_cast<double>(calculator.freeVariable()),
          static_cast<double>(calculator.activeField())};
}

float valueOf(const Dof& dof, DofField field) {
  using enum DofField;
  switch (field) {
    case hyperfocal:
      return dof.hyperfocal();
    case hyperfocalNearLimit:
      return dof.hyperfocalNearLimit();
    case nearLimit:
      return dof.dofNearLimit();
    case farLimit:
      return dof.dofFarLimit();
    default:
      return dof.depthOfField();
  }
}

class DofCalculators : public CalculatorTest {
 protected:
  using enum DofField;
};

TEST_F(DofCalculators, FixedValuesReplaceTheInputsAndCannotBeChanged) {
  choose(4);  // 35 mm f/2
  DofInverseCalculator calculator(environment());
  calculator.load();
  EXPECT_FLOAT_EQ(calculator.model().focalLength(), 0.035F);
  EXPECT_EQ(calculator.model().teleconverter(), 1);
  EXPECT_EQ(calculator.model().aperture().fstop, 2);
  EXPECT_EQ(calculator.setLens({0.05F}), cannotChangeFocalLength());
  EXPECT_EQ(calculator.setAperture(apertures.apertureForStop(8)), cannotChangeAperture());
  for (const DofField variable : {focalLength, aperture}) {
    calculator.setFreeVariable(variable);
    EXPECT_FALSE(calculator.isActiveFieldEnabled());
    EXPECT_TRUE(calculator.setActiveFieldValue(10));
  }
  EXPECT_FALSE(calculator.setSubjectDistance(3)) << "which nothing has to follow";
  calculator.setFreeVariable(subjectDistance);
  EXPECT_FALSE(calculator.setActiveFieldValue(5));
}

TEST_F(DofCalculators, EveryDrivenFieldReachesItsValue) {
  DofInverseCalculator calculator(environment());
  for (const DofField variable : {focalLength, aperture, subjectDistance}) {
    calculator.load();
    calculator.setFreeVariable(variable);
    for (const DofField field : calculator.offeredFields()) {
      calculator.setActiveField(field);
      const float wanted = valueOf(calculator.model(), field) * 0.9F;
      EXPECT_FALSE(calculator.setActiveFieldValue(wanted));
      EXPECT_NEAR(valueOf(calculator.model(), field), wanted, wanted * 1e-4);
      EXPECT_NEAR(calculator.activeFieldValue(), wanted, wanted * 1e-4);
    }
  }
}

TEST_F(DofCalculators, AGivenResultSurvivesOtherEdits) {
  DofInverseCalculator calculator(environment());
  calculator.load();
  calculator.setFreeVariable(subjectDistance);
  calculator.setActiveField(farLimit);
  EXPECT_FALSE(calculator.setActiveFieldValue(12));
  EXPECT_FALSE(calculator.setAperture(apertures.apertureForStop(4)));
  EXPECT_FALSE(calculator.setLens({0.035F}));
  EXPECT_NEAR(calculator.model().dofFarLimit(), 12, 1e-3);
}

TEST_F(DofCalculators, RefusalsLeaveEverythingAsItWas) {
  DofInverseCalculator calculator(environment());
  calculator.load();
  const auto before = settingsNow();
  const struct {
    DofField variable, field;
    float wanted;
    Refusal refusal;
  } cases[] = {{aperture, hyperfocal, 0.04F, noAperture()},  // inside the focal length
               {aperture, hyperfocal, 0.05F, noAperture()},  // at it
               {aperture, nearLimit, 6, noAperture()},       // behind the subject
               {aperture, farLimit, 4, noAperture()},        // before it
               {aperture, totalDof, -1, noAperture()},
               {aperture, totalDof, std::nanf(""), noAperture()},
               {focalLength, nearLimit, 0, noFocalLength()},
               {focalLength, totalDof, 0, noFocalLength()},
               {subjectDistance, nearLimit, 20, noSubjectDistance()},
               {subjectDistance, totalDof, std::nanf(""), noSubjectDistance()}};
  for (const auto& c : cases) {
    calculator.setFreeVariable(c.variable);
    calculator.setActiveField(c.field);
    const auto state = stateOf(calculator);
    EXPECT_EQ(calculator.setActiveFieldValue(c.wanted), c.refusal) << c.wanted;
    EXPECT_EQ(stateOf(calculator), state) << c.wanted;
  }
  EXPECT_EQ(settingsNow(), before);
  EXPECT_EQ(noAperture().title(), "No result");
}

TEST_F(DofCalculators, AFarLimitAtInfinityIsFocusAtTheHyperfocalDistance) {
  DofInverseCalculator calculator(environment());
  for (const DofField variable : {focalLength, aperture, subjectDistance}) {
    calculator.load();
    calculator.setFreeVariable(variable);
    calculator.setActiveField(farLimit);
    EXPECT_FALSE(calculator.setActiveFieldValue(-1));
    EXPECT_EQ(calculator.model().dofFarLimit(), -1);
    EXPECT_NEAR(calculator.model().subjectDistance(), calculator.model().hyperfocal(), 0.01);
  }
}

TEST_F(DofCalculators, DistancesAreDrivenByLimitsOnly) {
  DofInverseCalculator calculator(environment());
  calculator.load();
  calculator.setActiveField(hyperfocalNearLimit);
  calculator.setFreeVariable(subjectDistance);
  EXPECT_EQ(calculator.activeField(), nearLimit);
  calculator.setActiveField(hyperfocal);
  EXPECT_EQ(calculator.activeField(), nearLimit) << "not offered";
  EXPECT_EQ(calculator.offeredFields().size(), 3U);
}

TEST_F(DofCalculators, TheAdvancedFormTakesTheAdjustedCircle) {
  CocForm form(environment());
  form.setPrintSize({"0.508"}, {"0.4064"});
  EXPECT_FALSE(form.done());
  DofCalculator basic(environment()), advanced(environment(), DofForm::advanced);
  basic.load();
  advanced.load();
  EXPECT_NEAR(advanced.model().circleOfConfusion() * 2, basic.model().circleOfConfusion(), 1e-9);
}

TEST_F(DofCalculators, TheFormRefusesWhatIsNoCircle) {
  CocForm form(environment());
  form.model().setAutoCalculateCoc(false);
  for (const char* text : {"", "abc", "0", "-0.01", "0,02x", "NaN"}) {
    EXPECT_EQ(form.done(text), noCircleOfConfusion()) << text;
  }
  EXPECT_FALSE(defaults.objectForKey(settings::global_cameraAdjustedCocValues));
  EXPECT_FALSE(form.done("0.02"));
  EXPECT_FLOAT_EQ(storedCocCalculator(defaults, 0.03F).adjustedCoc(), 0.02F);
  EXPECT_FLOAT_EQ((TypedLength{"1", "6"}).metres(UnitSystem::imperial), 0.4572F);
  EXPECT_FLOAT_EQ((TypedLength{"x", "6"}).metres(UnitSystem::imperial), 0.1524F);
}

TEST_F(DofCalculators, TablePositionsStayInTheTable) {
  HyperfocalTable wide(environment());
  wide.load();
  wide.setPosition({20.5F, 30, 40, 25});
  wide.save();
  wide.load();
  EXPECT_EQ(wide.position(), (TablePosition{20.5F, 30, 40, 25}));
  choose(4);  // one row, one column
  wide.load();
  EXPECT_EQ(wide.position(), TablePosition());
  defaults.setFloat(std::nanf(""), settings::dofTable_offsetX);
  defaults.setInteger(-5, settings::dofTable_selectedRow);
  defaults.setInteger(1'000'000, settings::dofTable_selectedCol);
  DofTable table(environment());
  table.load();
  EXPECT_EQ(table.position(), TablePosition());
}

}  // namespace
}  // namespace zenivo
