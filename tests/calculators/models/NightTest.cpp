#include <gtest/gtest.h>

#include <cmath>

#include "app/settings/SettingsKeys.h"
#include "calculators/CalculatorFixture.h"
#include "calculators/RandomOptics.h"
#include "calculators/models/NightModel.h"
#include "calculators/models/SpotStarsModel.h"
#include "calculators/models/Timelapse.h"

namespace zenivo {
namespace {

class SpotStars : public testing::Test {
 protected:
  SpotStarsModel model(float focalLength = 0.024F, float fstop = 2.8F) {
    SpotStarsModel model(defaults_, stops_);
    model.setFocalLength(focalLength);
    model.setAperture(stops_.apertureForStop(fstop));
    model.setSensorSize(kFullFrame);
    model.setMegaPixels(24);
    model.setCropFactor(1);
    model.setAccuracy(SpotStarsAccuracy::accurate);
    return model;
  }

  UserDefaults defaults_;
  ApertureManager stops_{defaults_};
};

// The full NPF formula as published by its author: t = (16.856 N + 0.0997 F + 13.713 P) /
// (F cos d), N the aperture, F in millimetres, P the pitch in micrometres (F. Michaud, "La
// regle NPF", Societe Astronomique du Havre, 2014).
TEST_F(SpotStars, NpfRuleAsPublished) {
  RandomOptics random(10);
  for (int i = 0; i < 500; ++i) {
    SpotStarsModel spot = model(random.focalLength(), random.between(1.2, 8));
    spot.setMegaPixels(random.between(8, 100));
    spot.setDeclination(random.between(1, 85));
    const double F = spot.focalLength() * 1000.0;
    const double P = std::sqrt(36 * 24 / (spot.megaPixels() * 1e6)) * 1000;
    const double published = (16.856 * spot.aperture().value + 0.0997 * F + 13.713 * P) /
                             (F * std::cos(spot.declination() * M_PI / 180));
    EXPECT_NEAR(spot.maxExposureTimeWithNPFRule(), published, published * 0.003);
    const float accurate = spot.maxExposureTimeWithNPFRule();
    spot.setAccuracy(SpotStarsAccuracy::standard);
    EXPECT_FLOAT_EQ(spot.maxExposureTimeWithNPFRule(), 2 * accurate);
  }
}

TEST_F(SpotStars, OtherRules) {
  SpotStarsModel spot = model(0.025F);
  EXPECT_FLOAT_EQ(spot.maxExposureTimeWithRuleOf500(), 20);
  spot.setCropFactor(1.6F);
  EXPECT_FLOAT_EQ(spot.maxExposureTimeWithRuleOf500(), 12.5F);
  EXPECT_FLOAT_EQ(NightModel::maxExposureTimeRuleOf500ForFocalLength(0.025F, 1.6F), 12.5F);
  spot.setTeleconverter2(2);
  EXPECT_FLOAT_EQ(spot.maxExposureTimeWithRuleOf500(), 6.25F);

  // A star at the equator crosses 360 degrees of pixels in a day: three pixels of a long
  // lens, whose pixels all see the same angle, take three such parts of the day.
  SpotStarsModel tele = model(0.4F);
  const double pixelAngle = std::atan(1 / 400.0) * 180 / M_PI * std::sqrt(36 * 24 / 24e6);
  const double seconds = 3 * pixelAngle / 360 * 86164;
  // The rule counts 90 degrees of pixels times 2 pi for the circle.
  EXPECT_NEAR(tele.maxExposureTimeVarnell(), seconds * 360 / (90 * 2 * M_PI), seconds * 0.01);
}

TEST_F(SpotStars, ShowsWhatComes) {
  SpotStarsModel film = model();
  film.setMegaPixels(0);
  EXPECT_TRUE(std::isinf(film.maxExposureTimeWithNPFRule()));
  SpotStarsModel pole = model();
  pole.setDeclination(90);
  EXPECT_GT(std::abs(pole.maxExposureTimeWithNPFRule()), 1e9);
}

// The helper that knows no sensor gives what the model gives for the sensor it assumes.
TEST_F(SpotStars, HelperAgreesOnAFullFrame) {
  const SpotStarsModel spot = model();
  EXPECT_NEAR(NightModel::maxExposureTimeForNPFRuleWithFocalLength(
                  0.024F, static_cast<float>(spot.aperture().value), 1, 0, 0.03F, 24),
              spot.maxExposureTimeWithNPFRule(), 1e-4);
}

// The Earth turns once in a sidereal day of 86164.1 s.
TEST(StarTrails, AngleAndTime) {
  NightModel night = NightModel::initWithExposureTime(86164.1F, true);
  night.calculateAngleFromExposureTime();
  EXPECT_NEAR(night.angle, 360, 0.001);
  RandomOptics random(12);
  for (int i = 0; i < 1000; ++i) {
    const float seconds = random.between(0.1, 1e5);
    night.exposureTime = seconds;
    night.calculateAngleFromExposureTime();
    night.calculateExposureTimeFromAngle();
    EXPECT_NEAR(night.exposureTime, seconds, seconds * 3e-7);
  }
}

TEST(Timelapse, TheThreeAgree) {
  Timelapse lapse = Timelapse::initWithFps(25, 30, 1800, 4);
  lapse.calculateShootingInterval();
  EXPECT_DOUBLE_EQ(lapse.shootingInterval, 2.4);
  EXPECT_EQ(lapse.numberOfPhotos(), 750);
  EXPECT_EQ(lapse.totalMemoryUsage(), 3000);
  RandomOptics random(13);
  for (int i = 0; i < 5000; ++i) {
    lapse = {std::ceil(random.between(1, 60)), random.coin() ? 24 : 30, 0,
             std::ceil(random.between(100, 1e5)), 1};
    lapse.calculateClipLength();
    const Timelapse before = lapse;
    const double frames = std::ceil(lapse.eventDuration / lapse.shootingInterval);
    EXPECT_NEAR(lapse.clipLength * lapse.fps, frames, 1e-9);
    EXPECT_GE(frames - lapse.numberOfPhotos(), 0);
    EXPECT_LE(frames - lapse.numberOfPhotos(), 1) << "the clip rounds up, the photos down";
    // A clip whose length has no more than hundredths comes back to itself.
    lapse.clipLength = std::round(lapse.clipLength);
    lapse.calculateShootingInterval();
    lapse.clipLength = 0;
    lapse.calculateClipLength();
    EXPECT_NEAR(lapse.clipLength, std::round(before.clipLength), 1.0 / lapse.fps + 1e-9);
  }
}

// 420 / 1.12 is 374.99999999999994 in binary.
TEST(Timelapse, WholeNumbersOfPhotosStayWhole) {
  for (int frames = 1; frames < 2000; ++frames) {
    Timelapse lapse = Timelapse::initWithFps(25, frames / 25.0, 420, 4);
    lapse.calculateShootingInterval();
    EXPECT_EQ(lapse.numberOfPhotos(), frames);
  }
}

TEST(Timelapse, ImpossibleNumbers) {
  for (const double interval : {0.0, std::nan("")}) {
    Timelapse lapse{interval, 25, 30, 1800, 4};
    lapse.calculateClipLength();
    EXPECT_FALSE(std::isfinite(lapse.clipLength));
    EXPECT_EQ(lapse.numberOfPhotos(), 0);
  }
  EXPECT_EQ((Timelapse{1e-9, 25, 30, 1e9, 4}).numberOfPhotos(), 2147483647);
  EXPECT_EQ((Timelapse{-1, 25, 30, 100, 4}).numberOfPhotos(), 0);
}

}  // namespace
}  // namespace zenivo
