#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "calculators/CalculatorTest.h"
#include "calculators/NightCalculators.h"
#include "calculators/TimelapseCalculator.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

class NightCalculators : public CalculatorTest {};

TEST_F(NightCalculators, CamerasGiveTheSensorAndFixedValues) {
  choose(4);
  SpotStarsCalculator calculator(environment());
  calculator.load();
  EXPECT_FLOAT_EQ(calculator.model().focalLength(), 0.035F);
  EXPECT_EQ(calculator.model().aperture().fstop, 2);
  EXPECT_EQ(calculator.model().megaPixels(), 42.4F);
  EXPECT_EQ(calculator.setLens({0.02F}), cannotChangeFocalLength());
  EXPECT_EQ(calculator.setAperture(apertures.apertureForStop(4)), cannotChangeAperture());
  choose(3);
  calculator.load();
  EXPECT_TRUE(std::isinf(calculator.model().maxExposureTimeWithNPFRule())) << "film";
}

TEST_F(NightCalculators, TrailsFollowTimeAngleAndTouch) {
  StarTrailCalculator calculator(defaults);
  EXPECT_EQ(calculator.model().exposureTime, 60) << "0 is stored";
  calculator.setExposureTime(3600);
  EXPECT_FLOAT_EQ(calculator.model().angle, 15.041068F);
  NightStarTrailsView view(&calculator);
  view.touch({10, 0}, {10, 10});  // straight above: y runs down
  EXPECT_FLOAT_EQ(calculator.model().angle, 270);
  EXPECT_NEAR(calculator.model().exposureTime, 0.75 * 86164.1, 1);
}

TEST(NightStarTrailsView, DragsAllTheWayRound) {
  NightStarTrailsView view;
  for (int degrees = 0; degrees < 360; ++degrees) {
    const double angle = degrees * M_PI / 180;
    view.touch({5 + 3 * std::cos(angle), 7 + 3 * std::sin(angle)}, {5, 7});
    EXPECT_NEAR(std::remainder(double{view.angle()} - degrees, 360), 0, 1e-4) << degrees;
    EXPECT_GE(view.angle(), 0);
  }
  for (const TrailStar& star : NightStarTrailsView::stars()) EXPECT_LT(star.radius, 1);
}

class TimelapseCalculators : public CalculatorTest {
 protected:
  TimelapseCalculator calculator{defaults};
};

TEST_F(TimelapseCalculators, StoredNothingIsTheUsualLapse) {
  EXPECT_DOUBLE_EQ(calculator.model().shootingInterval, 2.4);
  EXPECT_EQ(calculator.model().imageSize, 4);
  calculator.setValue(TimelapseField::clipLength, 0);
  calculator.save();
  EXPECT_EQ(TimelapseCalculator(defaults).model().clipLength, 30);
}

TEST_F(TimelapseCalculators, EachFreeVariableFollows) {
  calculator.setFreeVariable(TimelapseField::clipLength);
  calculator.setValue(TimelapseField::shootingInterval, 7);
  EXPECT_DOUBLE_EQ(calculator.model().clipLength, 258 / 25.0);
  EXPECT_EQ(calculator.model().numberOfPhotos(), 257) << "one fewer than the frames";
  calculator.setFreeVariable(TimelapseField::eventDuration);
  calculator.setValue(TimelapseField::clipLength, 20);
  EXPECT_DOUBLE_EQ(calculator.model().eventDuration, 3500);
  calculator.setFreeVariable(TimelapseField::fps);
  EXPECT_EQ(calculator.freeVariable(), TimelapseField::eventDuration) << "never free";
  calculator.setValue(TimelapseField::fps, 1e300);
  EXPECT_EQ(calculator.model().fps, std::numeric_limits<std::int32_t>::max());
  calculator.setValue(TimelapseField::fps, std::nan(""));
  EXPECT_EQ(calculator.model().fps, 0);
}

TEST_F(TimelapseCalculators, RowsOfTheTable) {
  const auto rows = timelapseIntervals();
  ASSERT_GT(rows.size(), 10U);
  for (const TimelapseIntervalRow& row : rows) {
    calculator.setFreeVariable(TimelapseField::eventDuration);
    calculator.selectRow(row);
    EXPECT_EQ(calculator.model().eventDuration, row.eventDurationValue * 3600);
    EXPECT_GT(calculator.model().clipLength, 5) << row.event << ": a clip worth watching";
    EXPECT_LT(calculator.model().clipLength, 900) << row.event;
  }
  const TemporaryFolder folder;
  EXPECT_TRUE(timelapseIntervals(folder / "missing.plist").empty());
}

}  // namespace
}  // namespace zenivo
