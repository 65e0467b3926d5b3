#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/DistanceUnits.h"

namespace zenivo {
namespace {

class Units : public testing::Test {
 protected:
  void use(UnitSystem system) { units_.setCurrentUnits(system); }

  std::optional<DistanceUnit> unit(const char* name) const { return units_.unitWithName(name); }

  std::string text(float baseValue, int levels) const {
    return NSNumberWithDistanceUnit::numberWithFloat(baseValue, units_)
        .formattedValueWithNumberOfDecimals(2, levels);
  }

  UserDefaults defaults_;
  DistanceUnitsManager units_{defaults_};
};

TEST_F(Units, TheLargestUnitThatStillMakesOne) {
  const struct {
    float metres;
    const char* name;
  } cases[] = {{0.0004F, "mm"}, {0.001F, "mm"}, {0.0099F, "mm"}, {0.01F, "cm"},
               {0.99F, "cm"},   {1, "m"},       {999, "m"},      {1000, "km"}};
  for (const auto& [metres, name] : cases) {
    EXPECT_EQ(units_.bestDistanceUnitForValue(metres)->name, name) << metres;
  }
  EXPECT_EQ(units_.bestDistanceUnitForValue(5000, unit("cm"), unit("m"))->name, "m");
  EXPECT_EQ(units_.bestDistanceUnitForValue(0.001F, unit("cm"), unit("m"))->name, "cm");
  EXPECT_FALSE(units_.bestDistanceUnitForValue(1, unit("m"), unit("cm"))) << "the wrong way round";
  const std::optional<DistanceUnit> metre = unit("m");
  use(UnitSystem::imperial);
  EXPECT_FALSE(units_.bestDistanceUnitForValue(1, metre)) << "of the other system";
  EXPECT_EQ(units_.indexOfUnit(*metre), -1);
  EXPECT_EQ(units_.bestDistanceUnitForValue(0.083333336F)->name, "in");
  EXPECT_EQ(units_.bestDistanceUnitForValue(5280)->name, "mi");
}

TEST_F(Units, TheSystemIsKeptInTheSettings) {
  use(UnitSystem::imperial);
  EXPECT_EQ(defaults_.integerForKey(settings::global_units), 1);
  EXPECT_EQ(DistanceUnitsManager(defaults_).currentUnits(), UnitSystem::imperial);
}

TEST_F(Units, NumbersKeepTheirMetres) {
  for (const UnitSystem system : {UnitSystem::metric, UnitSystem::imperial}) {
    use(system);
    const double base = system == UnitSystem::imperial ? 0.3048 : 1;
    for (const float value : {0.0F, 0.02F, 0.5F, 3.7F, 128.0F, 20000.0F}) {
      const auto number = NSNumberWithDistanceUnit::numberWithFloat(value, units_);
      EXPECT_NEAR(number.metersValue(), value * base, value * 1e-6);
    }
  }
  use(UnitSystem::metric);
  const auto inCentimetres = NSNumberWithDistanceUnit::numberWithFloat(250, *unit("cm"), units_);
  EXPECT_EQ(inCentimetres.unit()->name, "m");
  EXPECT_NEAR(inCentimetres.metersValue(), 2.5, 1e-6);
}

TEST_F(Units, MetricTexts) {
  EXPECT_EQ(text(2.5F, 2), "2.5 m");
  EXPECT_EQ(text(0.035F, 1), "3.5 cm");
  EXPECT_EQ(text(0, 1), "0 mm");
  EXPECT_EQ(text(-1, 1), "");
  EXPECT_EQ(text(std::nanf(""), 2), "");
  EXPECT_EQ(text(std::numeric_limits<float>::infinity(), 2), "∞");
}

TEST_F(Units, ImperialTextsSplitAndCarry) {
  use(UnitSystem::imperial);
  const float inch = 1.0F / 12;
  const struct {
    float feet;
    const char* text;
  } cases[] = {
      {5.5F, "5' 6\""},
      {5, "5 '"},
      {5.97F, "6 '"},  // 11.6 inches are a foot
      {5 + 0.4F * inch, "5 '"},
      {5280 * 1.5F, "1mi 2640'"},
      {5279.97F, "1 mi"},
      {3.5F * inch, "3\" 1/2\""},
      {3.99F * inch, "4 \""},
      {11.99F * inch, "1 '"},
      {0, "0 \""},
  };
  for (const auto& [feet, expected] : cases) EXPECT_EQ(text(feet, 2), expected) << feet;
  EXPECT_EQ(text(5.5F, 1), "5.5 '");
  const auto onlyInches =
      NSNumberWithDistanceUnit::numberWithFloat(11.99F * inch, unit("in"), unit("in"), units_);
  EXPECT_EQ(onlyInches.formattedValueWithNumberOfDecimals(0, 2), "12 \"");
}

}  // namespace
}  // namespace zenivo
