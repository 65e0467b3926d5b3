#include "calculators/models/Exposure.h"

#include <gtest/gtest.h>

#include <cmath>

#include "calculators/RandomOptics.h"

namespace zenivo {
namespace {

class Exposures : public testing::Test {
 protected:
  UserDefaults defaults_;
  ApertureManager stops_{defaults_};
};

// The exposure value table of ISO 2720:1974: marked stops and speeds, which stand for
// powers of the square root of 2 and of 2.
TEST_F(Exposures, ValuesAsTabulated) {
  const struct {
    float fstop, seconds, iso;
    int ev;
  } cases[] = {{1, 1, 100, 0},      {8, 1.0F / 125, 100, 13},   {16, 1.0F / 125, 100, 15},
               {2.8F, 30, 100, -2}, {22, 1.0F / 1000, 100, 19}, {5.6F, 1.0F / 60, 400, 9},
               {1.4F, 30, 3200, -9}};
  for (const auto& [fstop, seconds, iso, ev] : cases) {
    Exposure exposure(seconds, iso, stops_.apertureForStop(fstop), 0, 0);
    exposure.calculateEV();
    EXPECT_NEAR(exposure.ev(), ev, 0.12) << fstop << " " << seconds;
  }
}

TEST_F(Exposures, FiltersLengthenByPowersOfTwo) {
  Exposure exposure(1.0F / 125, 100, stops_.apertureForStop(8), 0, 0);
  exposure.calculateEV();
  const float bare = exposure.ev();
  exposure.setFilter(10);
  EXPECT_FLOAT_EQ(exposure.ev(), bare - 10) << "what a meter behind it sees";
  exposure.calculateShutterSpeed();
  EXPECT_NEAR(exposure.shutterSpeed(), 1024.0 / 125, 1e-4);
  exposure.setFilter(3);
  exposure.setFilterFraction(1.0F / 3);
  EXPECT_NEAR(exposure.filterValue(), 3.33333, 1e-5);
}

TEST_F(Exposures, EachOperationKeepsTheLight) {
  RandomOptics random(9);
  for (int i = 0; i < 5000; ++i) {
    Exposure exposure(random.between(1e-4, 100), random.between(25, 25600),
                      stops_.apertureForStop(random.between(1, 32)),
                      std::trunc(random.between(1, 15)), random.coin() ? 0.5F : 0);
    Exposure bare = exposure;
    bare.setFilter(0);
    bare.setFilterFraction(0);
    bare.calculateEV();
    exposure.setEv(bare.ev() + exposure.filterValue());  // the filter takes just that away
    Exposure solved = exposure;
    solved.setShutterSpeed(1);
    solved.calculateShutterSpeed();
    EXPECT_NEAR(solved.shutterSpeed(), exposure.shutterSpeed(), exposure.shutterSpeed() * 1e-5);
    solved.setIso(1);
    solved.calculateISO();
    EXPECT_NEAR(solved.iso(), exposure.iso(), exposure.iso() * 2e-5);
    solved.setAperture({});
    solved.calculateAperture(stops_);
    EXPECT_NEAR(solved.aperture().fstop, exposure.aperture().fstop,
                exposure.aperture().fstop * 0.07);
  }
}

TEST_F(Exposures, AperturesComeFromTheLadderInForce) {
  Exposure exposure(1.0F / 60, 100, {}, 0, 0);
  exposure.setEv(9.5F);
  exposure.calculateAperture(stops_);
  EXPECT_EQ(exposure.aperture().fstop, 3.5);
  stops_.setCurrentApertureStopType(ApertureStopType::full);
  exposure.calculateAperture(stops_);
  EXPECT_EQ(exposure.aperture().fstop, 4);
}

}  // namespace
}  // namespace zenivo
