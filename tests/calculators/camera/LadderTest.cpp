#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <set>

#include "app/settings/SettingsKeys.h"
#include "calculators/camera/ApertureManager.h"
#include "calculators/camera/CameraFilter.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/Ladders.h"

namespace zenivo {
namespace {

constexpr ApertureStopType kAllTypes[] = {ApertureStopType::thirds, ApertureStopType::halves,
                                          ApertureStopType::full};

std::vector<double> fstopsUpTo(const ApertureManager& manager, double last) {
  std::vector<double> fstops;
  for (const Aperture& stop : manager.stops()) {
    if (stop.fstop <= last) fstops.push_back(stop.fstop);
  }
  return fstops;
}

// The numbers engraved on lenses: ISO 517:2008, table 1, for whole stops; the half and
// third stops as the makers' displays show them.
TEST(ApertureLadder, ShowsTheEngravedNumbers) {
  UserDefaults defaults;
  ApertureManager manager(defaults);
  EXPECT_EQ(fstopsUpTo(manager, 8),
            (std::vector<double>{0.95, 1,   1.1, 1.2, 1.4, 1.5, 1.6, 1.7, 1.8, 2,   2.2, 2.4,
                                 2.5,  2.8, 3.2, 3.5, 4,   4.5, 5,   5.6, 6.3, 7.1, 8}));
  manager.setCurrentApertureStopType(ApertureStopType::halves);
  EXPECT_EQ(fstopsUpTo(manager, 8),
            (std::vector<double>{1, 1.2, 1.4, 1.7, 2, 2.4, 2.8, 3.3, 4, 4.8, 5.6, 6.7, 8}));
  manager.setCurrentApertureStopType(ApertureStopType::full);
  EXPECT_EQ(fstopsUpTo(manager, 128),
            (std::vector<double>{1, 1.4, 2, 2.8, 4, 5.6, 8, 11, 16, 22, 32, 45, 64, 90, 128}));
}

TEST(ApertureLadder, ArithmeticUsesTheGeometricValue) {
  UserDefaults defaults;
  const ApertureManager manager(defaults);
  EXPECT_EQ(manager.apertureForStop(5.6F).fstop, 5.6);
  EXPECT_EQ(manager.apertureForStop(5.6F).value, std::sqrt(32.0F));
}

TEST(ApertureLadder, EveryDivisionAscendsTo1024) {
  for (const ApertureStopType type : kAllTypes) {
    UserDefaults defaults;
    defaults.setInteger(static_cast<int>(type), settings::global_cameraStops);
    const ApertureManager manager(defaults);
    EXPECT_EQ(manager.currentApertureStopType(), type);
    const auto& stops = manager.stops();
    for (std::size_t i = 1; i < stops.size(); ++i) {
      EXPECT_LT(stops[i - 1].fstop, stops[i].fstop);
      EXPECT_LT(stops[i - 1].value, stops[i].value);
    }
    EXPECT_EQ(stops.back().fstop, 1024);
    EXPECT_EQ(manager.apertureForStop(1e30F).fstop, 1024);
  }
}

TEST(ApertureLadder, KeepsTheDivisionInTheSettings) {
  UserDefaults defaults;
  defaults.setInteger(7, settings::global_cameraStops);
  ApertureManager manager(defaults);
  EXPECT_EQ(manager.currentApertureStopType(), ApertureStopType::thirds);
  manager.setCurrentApertureStopType(ApertureStopType::full);
  EXPECT_EQ(defaults.integerForKey(settings::global_cameraStops), 2);
  EXPECT_EQ(manager.apertureForStop(3.5F).fstop, 4);
}

// Dials step by thirds: each speed is 2^(1/3) times the one before, within the rounding
// of what is engraved.
TEST(ShutterLadder, StepsByThirds) {
  const auto ladder = ShutterSpeed::standardShutterSpeeds();
  for (std::size_t i = 1; i < ladder.size(); ++i) {
    EXPECT_NEAR(std::log2(ladder[i].value / ladder[i - 1].value) * 3, 1, 0.4) << ladder[i].text;
  }
  EXPECT_EQ(ladder.front().text, "1/8000");
  EXPECT_EQ(ladder.back().text, "30\"");
  EXPECT_EQ(ShutterSpeed::findNearestShutterSpeedOfValue(1.0F / 13, ladder).value, 0.07692308F);
  EXPECT_EQ(ShutterSpeed::findNearestShutterSpeedOfValue(1.3F, ladder).text, "1.3\"");
}

TEST(FilterLadder, DensityAndFactorOfEachNameAgreeWithItsStops) {
  for (const CameraFilter& filter : CameraFilter::standardFilters()) {
    if (!filter.description) continue;
    double factor = 0, density = 0;
    const int parts = std::sscanf(filter.description->c_str(), "ND%lf/%lf", &factor, &density);
    if (parts == 2) {
      EXPECT_NEAR(density, filter.fStopReduction * 0.3, 0.01) << *filter.description;
      EXPECT_EQ(factor, std::exp2(filter.fStopReduction)) << *filter.description;
    }
  }
}

TEST(FilterLadder, Texts) {
  const auto text = [](float stops, float fraction) {
    return CameraFilter::findNearestCameraFilter(stops).stopReductionTextWithFraction(fraction);
  };
  EXPECT_EQ(CameraFilter::findNearestCameraFilter(0).stopReductionText, "0 stops");
  EXPECT_EQ(CameraFilter::findNearestCameraFilter(1).stopReductionText, "1 stop");
  EXPECT_EQ(CameraFilter::findNearestCameraFilter(8.6F).stopReductionText, "8 2/3 stops");
  EXPECT_EQ(CameraFilter::findNearestCameraFilter(10).description, "ND110") << "the later of two";
  EXPECT_EQ(text(9, 0.33333334F), "9 ⅓ stops");
  EXPECT_EQ(text(0, 0.5F), "½ stops");
  EXPECT_EQ(text(8.666667F, 0.33333334F), "9 stops") << "thirds that add up to a stop";
  EXPECT_EQ(text(8.666667F, 0.6666667F), "9 ⅓ stops");
  EXPECT_EQ(CameraFilter::textForFractionalStops(0.2), "0.2");
  EXPECT_EQ(CameraFilter::indexForFractionFilterValue(0.3F, {}), -1);
}

/// The last of the nearest, by looking at every one.
template <class Ladder, class Value, class Projection>
const auto& bruteForceNearest(const Ladder& ladder, Value value, Projection projection) {
  auto best = ladder.begin();
  Value nearest = std::numeric_limits<Value>::infinity();
  for (auto element = ladder.begin(); element != ladder.end(); ++element) {
    const Value distance = std::abs(static_cast<Value>(std::invoke(projection, *element)) - value);
    if (distance > nearest) continue;
    nearest = distance;
    best = element;
  }
  return *best;
}

template <class Value, class Ladder, class Projection = std::identity>
void expectNearestAsBruteForce(const Ladder& ladder, Value low, Value high,
                               Projection projection = {}) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<Value> exponent(std::log(low), std::log(high));
  for (int i = 0; i < 2000; ++i) {
    const Value value = std::exp(exponent(random));
    EXPECT_EQ(&nearestElement(ladder, value, projection),
              &bruteForceNearest(ladder, value, projection))
        << value;
  }
  // Half way between two entries the later wins, where halving is exact.
  for (auto next = ladder.begin() + 1; next != ladder.end(); ++next) {
    const auto a = static_cast<Value>(std::invoke(projection, *(next - 1)));
    const auto b = static_cast<Value>(std::invoke(projection, *next));
    const Value middle = (a + b) / 2;
    if (middle - a != b - middle) continue;
    EXPECT_GE(&nearestElement(ladder, middle, projection), &*next) << middle;
  }
}

TEST(NearestLookup, AgreesWithLookingAtEveryEntry) {
  UserDefaults defaults;
  for (const ApertureStopType type : kAllTypes) {
    ApertureManager manager(defaults);
    manager.generateStopsForType(type);
    expectNearestAsBruteForce(manager.stops(), 0.1, 1e6, &Aperture::fstop);
  }
  expectNearestAsBruteForce(ShutterSpeed::standardShutterSpeeds(), 1e-5F, 1e6F,
                            &ShutterSpeed::value);
  expectNearestAsBruteForce(Iso::standardISOValues(), 0.1F, 1e7F);
  expectNearestAsBruteForce(CameraFilter::standardFilters(), 0.01F, 1e5F,
                            &CameraFilter::fStopReduction);
  expectNearestAsBruteForce(CameraFilter::standardFractionFilters(), 0.01F, 2.0F);
  expectNearestAsBruteForce(InchesFraction::table(), 0.001F, 2.0F, &InchesFraction::decimalValue);
}

TEST(NearestLookup, FarAndImpossibleValues) {
  const auto ladder = Iso::standardISOValues();
  EXPECT_EQ(nearestElement(ladder, std::numeric_limits<float>::infinity()), 102400);
  EXPECT_EQ(nearestElement(ladder, std::nanf("")), 102400);
  EXPECT_EQ(nearestElement(ladder, -1e5F), 1);
  // Farther from the first entry than any step of the ladder is long.
  const std::vector<double> far{20000, 30000, 40000};
  EXPECT_EQ(nearestElement(far, 29000.0), 30000);
}

TEST(Ladders, Ascend) {
  const auto focalLengths = FocalLength::standardFocalLengths();
  EXPECT_TRUE(std::ranges::is_sorted(focalLengths, std::ranges::less_equal{}));
  EXPECT_EQ(focalLengths.front(), 0.007F);
  EXPECT_EQ(focalLengths.back(), 1.0F);
  EXPECT_TRUE(std::ranges::is_sorted(Iso::standardISOValues()));
  std::set<std::string> fractions;
  for (const InchesFraction& row : InchesFraction::table()) fractions.insert(row.fraction);
  EXPECT_EQ(fractions.size(), 33U);
  EXPECT_TRUE(fractions.contains("3/32") && fractions.contains("1/2") && fractions.contains("1"));
}

}  // namespace
}  // namespace zenivo
