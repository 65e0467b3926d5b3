#include "calculators/ExposureCalculator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <tuple>

#include "calculators/CalculatorTest.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

using enum ExposureField;

class ExposureCalculators : public CalculatorTest {
 protected:
  ExposureCalculators() { calculator.load(); }

  const Exposure& equivalent() const { return calculator.equivalentExposureModel(); }

  ExposureCalculator calculator{environment()};
};

TEST_F(ExposureCalculators, RefusalsLeaveEverythingAsItWas) {
  const struct {
    ExposureField free, field;
    float value;
    Refusal refusal;
  } cases[] = {{shutterSpeed, testShutterSpeed, 0, noShutterSpeed()},
               {shutterSpeed, testShutterSpeed, -1, noShutterSpeed()},
               {shutterSpeed, iso, 0, noShutterSpeed()},
               {iso, shutterSpeed, 0, noIso()},
               {iso, testShutterSpeed, std::nanf(""), noIso()},
               {aperture, shutterSpeed, 0, noAperture()},
               {aperture, iso, -100, noAperture()}};
  for (const auto& c : cases) {
    calculator.setFreeVariable(c.free);
    const auto state = [this] {
      return std::tuple(calculator.testExposureModel().shutterSpeed(), equivalent().shutterSpeed(),
                        equivalent().iso(), equivalent().ev(), equivalent().aperture());
    };
    const auto before = state();
    const bool isSpeed = c.field == shutterSpeed || c.field == testShutterSpeed;
    const EditResult result = isSpeed ? calculator.setShutterSpeed(c.field, c.value)
                                      : calculator.setIso(c.field, c.value);
    EXPECT_EQ(result, c.refusal);
    EXPECT_EQ(state(), before);
  }
}

TEST_F(ExposureCalculators, RowsOfTheTableReplaceTheTestShot) {
  EXPECT_FALSE(calculator.selectRow({"light_full_sun", "ev_15"}));
  EXPECT_FALSE(calculator.usedTestModel());
  EXPECT_NEAR(equivalent().shutterSpeed(), 1 / 512.0, 1e-6);
  EXPECT_FALSE(calculator.setAperture(testAperture, apertures.apertureForStop(16)));
  EXPECT_TRUE(calculator.usedTestModel());
}

TEST_F(ExposureCalculators, TheFreeVariableComesBack) {
  calculator.setFreeVariable(iso);
  calculator.setFreeVariable(testAperture);  // which is none
  calculator.save();
  ExposureCalculator again(environment());
  again.load();
  EXPECT_EQ(again.freeVariable(), iso);
}

TEST(ExposureValues, TextsAreReadAsMeans) {
  const std::pair<const char*, std::int64_t> cases[] = {
      {"12 to 15", 13},  {"-6", -6},    {"-3 to -2", -2},
      {"about 8", 8},    {"", 0},       {"dark", 0},
      {"1, 2 and 4", 2}, {"12-15", -1}, {"99999999999999999999", 0}};
  for (const auto& [text, value] : cases) EXPECT_EQ(evValueOfText(text), value) << text;
}

TEST(ExposureValues, BrokenFilesGiveWhatIsWhole) {
  const TemporaryFolder folder;
  EXPECT_TRUE(exposureValueSections(folder / "missing.plist").empty());
  std::ofstream(folder / "broken.plist") << "<plist><array>";
  EXPECT_TRUE(exposureValueSections(folder / "broken.plist").empty());
  using List = PropertyList::Array;
  using Row = PropertyList::Dictionary;
  const List sections{Row{{"Values", List{Row{{"LightCondition", "a"}, {"EV100", "b"}},
                                          Row{{"LightCondition", "c"}}, 5}}},
                      Row{{"Other", 1}}, "text"};
  ASSERT_TRUE(writePropertyListFile(folder / "odd.plist", sections));
  const auto read = exposureValueSections(folder / "odd.plist");
  ASSERT_EQ(read.size(), 1U);
  ASSERT_EQ(read[0].rows.size(), 1U);
  EXPECT_EQ(read[0].rows[0].ev100, "b");
}

}  // namespace
}  // namespace zenivo
