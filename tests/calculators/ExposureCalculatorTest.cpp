#include "calculators/ExposureCalculator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "calculators/CalculatorTest.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

class ExposureCalculators : public CalculatorTest {
 protected:
  using enum ExposureField;

  ExposureCalculators() { calculator.load(); }

  const Exposure& equivalent() const { return calculator.equivalentExposureModel(); }

  ExposureCalculator calculator{environment()};
};

TEST_F(ExposureCalculators, TenStopsTakeAThousandTimesTheTime) {
  EXPECT_FALSE(calculator.setFilter(10, 0));
  EXPECT_NEAR(equivalent().shutterSpeed(), 0.008 * 1024, 1e-4);
  EXPECT_NEAR(equivalent().ev(), 13 - 10, 0.05);
}

TEST_F(ExposureCalculators, TheTestShotTellsTheLight) {
  EXPECT_FALSE(calculator.setIso(testIso, 400));
  EXPECT_NEAR(equivalent().shutterSpeed(), 0.008 * 4, 1e-6) << "the light is a quarter";
  calculator.setFreeVariable(iso);
  EXPECT_FALSE(calculator.setShutterSpeed(shutterSpeed, 0.008F));
  EXPECT_NEAR(equivalent().iso(), 400, 0.01);
  EXPECT_FALSE(calculator.setIso(testIso, 100));
  EXPECT_NEAR(equivalent().iso(), 100, 0.01);
  calculator.setFreeVariable(aperture);
  EXPECT_FALSE(calculator.setShutterSpeed(shutterSpeed, 0.032F));
  EXPECT_EQ(equivalent().aperture().fstop, 16);
  calculator.setFreeVariable(testAperture);
  EXPECT_EQ(calculator.freeVariable(), aperture) << "no free variable";
}

TEST_F(ExposureCalculators, RefusalsLeaveEverythingAsItWas) {
  const struct {
    ExposureField free;
    ExposureField field;
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
    const Exposure test = calculator.testExposureModel(), before = equivalent();
    const bool isSpeed = c.field == shutterSpeed || c.field == testShutterSpeed;
    const EditResult result = isSpeed ? calculator.setShutterSpeed(c.field, c.value)
                                      : calculator.setIso(c.field, c.value);
    EXPECT_EQ(result, c.refusal);
    EXPECT_EQ(calculator.testExposureModel().shutterSpeed(), test.shutterSpeed());
    EXPECT_EQ(equivalent().shutterSpeed(), before.shutterSpeed());
    EXPECT_EQ(equivalent().iso(), before.iso());
    EXPECT_EQ(equivalent().ev(), before.ev());
    EXPECT_EQ(equivalent().aperture(), before.aperture());
  }
}

TEST_F(ExposureCalculators, RowsOfTheTableReplaceTheTestShot) {
  const ExposureValueRow row{"light_full_sun", "ev_15"};
  EXPECT_TRUE(calculator.usedTestModel());
  EXPECT_FALSE(calculator.selectRow(row));
  EXPECT_FALSE(calculator.usedTestModel());
  EXPECT_NEAR(calculator.testExposureModel().shutterSpeed(), 1 / 512.0, 1e-6);
  EXPECT_EQ(calculator.testExposureModel().iso(), 100);
  EXPECT_NEAR(equivalent().ev(), 15, 1e-6);
  EXPECT_NEAR(equivalent().shutterSpeed(), 1 / 512.0, 1e-6);
  EXPECT_FALSE(calculator.setAperture(testAperture, apertures.apertureForStop(16)));
  EXPECT_TRUE(calculator.usedTestModel());
}

TEST(ExposureValues, TextsAreReadAsMeans) {
  const struct {
    const char* text;
    std::int64_t value;
  } cases[] = {{"12 to 15", 13},  {"-6", -6},    {"-3 to -2", -2},
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
