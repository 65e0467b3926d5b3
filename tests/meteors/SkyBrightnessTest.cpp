#include "meteors/SkyBrightness.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/Angles.h"
#include "meteors/Places.h"

namespace zenivo {
namespace {

constexpr double kMoonDown = -20.0 * kDegree;
constexpr double kDarkSun = -30.0 * kDegree;

SkyLights lights(double sunElevation, double moonElevation, double illumination) {
  return {.sunElevation = sunElevation * kDegree,
          .moonElevation = moonElevation * kDegree,
          .phaseIllumination = illumination};
}

// Everywhere, in every month: more light never shows fainter stars.
TEST(SkyModel, FallsWithSunAndMoon) {
  for (const ZVLocation& place :
       {placeAt(90, 0), placeAt(-90, 0), placeAt(0, 0), kTeide, placeAt(69.6, 18.9, -50, 3)}) {
    for (int month = 1; month <= 12; ++month) {
      const SkyModel model(2024 + month % 11, month, place, 40, 15);
      const auto expectFall = [&](auto lightsAt) {
        double last = kDarkSkyMagnitude;
        for (double share = 0; share <= 1; share += 1.0 / 360) {
          const double magnitude = model.limitingMagnitude(lightsAt(share));
          ASSERT_LE(magnitude, last + 1e-9) << place.coordinate.latitude << ' ' << month;
          last = magnitude;
        }
      };
      for (const double fixed : {-40.0, -17.0, -5.0, 3.0, 60.0}) {
        for (const double lit : {0.0, 0.4, 1.0}) {
          expectFall([&](double share) { return lights(180 * share - 90, fixed, lit); });
          expectFall([&](double share) { return lights(fixed, 180 * share - 90, lit); });
        }
      }
      expectFall([](double share) { return lights(-30, 40, share); });
    }
  }
}

// The darkest sky needs the Sun 18 degrees down and no Moon; the model itself gives less.
TEST(SkyModel, TheDarkestSkyIsGiven) {
  const SkyModel model(2026, 8, kTeide, 40, 15);
  EXPECT_EQ(model.limitingMagnitude(lights(-20.0, -0.1, 1.0)), 6.4);
  const double twilight = model.limitingMagnitude(lights(-17.9, -89.0, 0.0));
  EXPECT_LT(twilight, 6.4);
  EXPECT_GT(twilight, 5.8);
  // The Moon on the horizon ends the darkness and lights nothing yet.
  EXPECT_EQ(model.limitingMagnitude(lights(-20.0, 0.0, 1.0)),
            model.limitingMagnitude(lights(-20.0, 0.0, 0.0)));
}

// Known of the sky: with the full Moon up the eye loses some two magnitudes, at sunset it
// sees Venus and no star, by day nothing fainter than -3 or so.
TEST(SkyModel, IsAboutRight) {
  const SkyModel model(2026, 1, kTeide, 40, 15);
  EXPECT_NEAR(model.limitingMagnitude(lights(-30.0, 45.0, 1.0)), 4.2, 0.5);
  EXPECT_NEAR(model.limitingMagnitude(lights(-30.0, 45.0, 0.5)), 5.5, 0.5);
  EXPECT_NEAR(model.limitingMagnitude(lights(0.0, -45.0, 0.0)), 0.0, 1.0);
  EXPECT_NEAR(model.limitingMagnitude(lights(45.0, -45.0, 0.0)), -3.5, 1.0);
}

// What the model is made of acts the right way round.
TEST(SkyModel, AirAndGlow) {
  const auto brightness = [](std::int64_t year, const ZVLocation& place, double humidity) {
    return SkyModel(year, 6, place, humidity, 15)
        .zenithBrightness(SkyBand::V, {.sunElevation = kDarkSun, .moonElevation = kMoonDown});
  };
  // 1992 is a maximum of the solar cycle, and so is 2003; the airglow follows it.
  EXPECT_GT(brightness(1992, kTeide, 40), brightness(1997, kTeide, 40));
  EXPECT_NEAR(brightness(1992, kTeide, 40), brightness(2003, kTeide, 40), 1e-4);
  // A mountain is above dust and water; an altitude counts only where it is known.
  EXPECT_GT(brightness(2026, kTeide, 40), brightness(2026, placeAt(28.27, -16.64), 40));
  EXPECT_EQ(brightness(2026, placeAt(28.27, -16.64, 2390, 0), 40),
            brightness(2026, placeAt(28.27, -16.64), 40));
  // The equator is no singularity between the hemispheres' seasons.
  EXPECT_TRUE(std::isfinite(brightness(2026, placeAt(0, 0), 40)));
  EXPECT_EQ(calculateLimitingMagnitudeWithYear(2026, 6, kTeide, lights(-10, 20, 0.5), 40, 15),
            SkyModel(2026, 6, kTeide, 40, 15).limitingMagnitude(lights(-10, 20, 0.5)));
}

}  // namespace
}  // namespace zenivo
