#include "find/DirectionSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "engine/Angles.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "find/PassageSearch.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

constexpr double kFirstDay = 61041.0;  // 2026-01-01
constexpr double kDeltaT = 69.0 / 86400.0;

// The edges of the tropics, high latitudes of both sides, both sides of the
// antimeridian, and places where photographers go.
constexpr std::pair<double, double> kPlaces[] = {
    {48.8584, 2.2945}, {65.0, 25.5},    {69.65, 18.96}, {-65.0, -64.0},  {-45.03, 168.66},
    {37.74, -119.57},  {36.06, -112.1}, {52.5, 179.99}, {-51.0, -180.0}, {-34.6, -58.4},
    {40.7, -74.0},     {35.7, 139.7},   {-33.9, 151.2}, {23.4, 113.0},   {-23.4, -46.6},
    {19.43, -99.13},   {1.35, 103.8},   {-0.2, -78.5},  {-13.16, -72.5}, {21.3, -157.8},
};

double localMidnight(const PtPosition& place, int day) {
  return kFirstDay + day - place.longitude() / 360.0;
}

/// Degrees of azimuth a minute.
double azimuthRate(FindBody body, const PtPosition& place, double mjd) {
  FindBodies bodies(body, place);
  bodies.evaluate(mjd - 0.5 / 1440.0, kDeltaT);
  const double before = bodies.body().horizontal().azimuth_;
  bodies.evaluate(mjd + 0.5 / 1440.0, kDeltaT);
  return std::abs(angleDifference(bodies.body().horizontal().azimuth_, before));
}

TEST(PassageSearch, AgreesWithAWalkInSteps) {
  for (const auto& [latitude, longitude] : kPlaces) {
    const PtPosition place(latitude, longitude);
    for (const FindBody body : {FindBody::sun, FindBody::moon}) {
      for (const float azimuth : {0.0F, 63.0F, 90.0F, 205.0F}) {
        const double day = localMidnight(place, static_cast<int>(azimuth) + 11);
        PassageSearch search(body, place, azimuth);
        const auto found = search.onDay(day);
        // Every ten seconds, over the day.
        FindBodies bodies(body, place);
        std::vector<double> walked;
        double before = 0;
        for (int i = 0; i <= 8640; ++i) {
          const double mjd = day + i / 8640.0;
          bodies.evaluate(mjd, kDeltaT);
          const double offset =
              angleDifference(bodies.body().horizontal().azimuth_, double{azimuth});
          const bool crosses = i > 0 && before * offset <= 0 && std::abs(before - offset) < 90;
          if (crosses) walked.push_back(mjd);
          before = offset;
        }
        ASSERT_EQ(found.size(), walked.size()) << latitude << " " << azimuth;
        for (std::size_t i = 0; i < found.size(); ++i) {
          EXPECT_NEAR(modifiedJulianDay(found[i].date), walked[i] - 5.0 / 86400, 7.0 / 86400);
        }
      }
    }
  }
}

TEST(AzimuthSearch, FindsEveryDateThatCanBePhotographed) {
  std::mt19937_64 random(31);
  std::uniform_real_distribution<float> anyAzimuth(0, 360);
  int dates = 0;
  for (const auto& [latitude, longitude] : kPlaces) {
    const PtPosition place(latitude, longitude);
    for (const FindBody body : {FindBody::sun, FindBody::moon}) {
      const float azimuth = anyAzimuth(random);
      AzimuthSearch search(body, place, azimuth, kDeltaT);
      PassageSearch passages(body, place, azimuth);
      for (int i = 0; i < 365; i += 2) {
        const double day = localMidnight(place, i);
        const auto found = search.onDay(day);
        const auto all = passages.onDay(day);
        if (found) {
          EXPECT_LT(std::abs(angleDifference(double{found->azimuth}, double{azimuth})), 0.495);
          EXPECT_GE(modifiedJulianDay(found->date), day - 1.0 / 86400);
          EXPECT_LE(modifiedJulianDay(found->date), day + 1.0);
        }
        // A result a day is the rule, and an azimuth that runs by half a degree in
        // a minute, high in the sky, can fall between two minutes.
        const bool fast = std::ranges::any_of(all, [&](const auto& passage) {
          return azimuthRate(body, place, modifiedJulianDay(passage.date)) > 0.45;
        });
        const bool atMidnight = std::ranges::any_of(all, [&](const auto& passage) {
          const double hour = (modifiedJulianDay(passage.date) - day) * 24.0;
          return hour < 0.05 || hour > 23.95;
        });
        if (all.empty() || fast || atMidnight) continue;
        ++dates;
        EXPECT_TRUE(found) << latitude << " " << azimuth << " day " << i << " elevation "
                           << all[0].elevation;
      }
    }
  }
  EXPECT_GT(dates, 4000);
}

TEST(AzimuthElevationSearch, FindsWhereTheBodyWasPut) {
  std::mt19937_64 random(19);
  std::uniform_real_distribution<double> hour(0.02, 0.98);
  for (int i = 0; i < 400; ++i) {
    const auto& [latitude, longitude] = kPlaces[random() % std::size(kPlaces)];
    const PtPosition place(latitude, longitude);
    const FindBody body = i % 2 == 0 ? FindBody::sun : FindBody::moon;
    FindBodies bodies(body, place);
    // One in eight in 1834, when moments are negative numbers.
    const double day = localMidnight(place, i % 8 == 0 ? i - 70000 : i);
    const double when = day + hour(random);
    bodies.evaluate(when, kDeltaT);
    const PtPolar there = bodies.body().horizontal();
    // Near the zenith a degree of azimuth is passed within seconds.
    if (there.elevation_ < 1.0 || there.elevation_ > 60.0) continue;
    AzimuthElevationSearch search(body, place, static_cast<float>(there.azimuth_), 1.0F,
                                  static_cast<float>(there.elevation_), 1.0F, kDeltaT);
    const auto found = search.onDay(day);
    ASSERT_TRUE(found) << latitude << " " << there.azimuth_ << " " << there.elevation_;
    EXPECT_LE(std::abs(angleDifference(double{found->azimuth}, there.azimuth_)), 1.5);
    EXPECT_NEAR(double{found->elevation}, there.elevation_, 1.3);
  }
}

// The full Moon of 2024-11-15 21:28 UT (US Naval Observatory) rose over Paris at
// sunset: nearly all lit, the Sun just below the horizon.
TEST(AzimuthElevationSearch, TellsTheMoonsPhase) {
  const PtPosition paris(48.8584, 2.2945);
  FindBodies bodies(FindBody::moon, paris);
  bodies.evaluate(60629.68, kDeltaT);  // 16:19 UT
  const PtPolar there = bodies.body().horizontal();
  AzimuthElevationSearch search(FindBody::moon, paris, static_cast<float>(there.azimuth_), 0.5F,
                                static_cast<float>(there.elevation_), 0.5F, kDeltaT);
  const auto found = search.onDay(60629.0 - 1.0 / 24.0);
  ASSERT_TRUE(found);
  EXPECT_GT(found->phase, 0.995F);
  EXPECT_TRUE(found->waxing);
  EXPECT_NEAR(found->sunElevation, -2.5F, 2.0F);
}

}  // namespace
}  // namespace zenivo
