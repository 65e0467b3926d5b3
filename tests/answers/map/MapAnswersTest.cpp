#include <gtest/gtest.h>

#include <cmath>

#include "answers/map/Horizon.h"
#include "answers/map/Line.h"
#include "answers/map/Pin.h"
#include "engine/Angles.h"
#include "support/Times.h"

namespace zenivo {
namespace {

LineReport lineAlong(const Coordinate& from, double azimuth, double length) {
  return answer(LineQuestion{.from = ZVLocation(from), .towards = azimuth, .length = length});
}

TEST(LineAnswer, LeadsWhereItIsTold) {
  // Paris to Tokyo, and back from there.
  const LineReport there = answer(LineQuestion{.from = ZVLocation(Coordinate{48.8584, 2.2945}),
                                               .towards = ZVLocation(Coordinate{35.6586, 139.7454}),
                                               .length = {}});
  const LineReport back =
      lineAlong(there.to.coordinate, std::remainder(there.endAzimuth + 180, 360), there.length);
  EXPECT_NEAR(back.to.coordinate.latitude, 48.8584, 1e-9);
  EXPECT_NEAR(back.to.coordinate.longitude, 2.2945, 1e-9);
  EXPECT_EQ(there.vertices.size(), static_cast<std::size_t>(there.length / 5000) + 1);
  // Towards the Sun at its transit over Greenwich, 2026 March 20: due south.
  const LineReport sun = answer(LineQuestion{
      .from = ZVLocation(Coordinate{51.4779, 0}),
      .towards = BodyAtMoment{.body = SkyBody::sun, .moment = utc(2026, 3, 20, 12, 7, 27)},
      .length = {}});
  EXPECT_NEAR(sun.azimuth, 180, 0.05);
  EXPECT_NEAR(sun.length, 500'000, 1e-6);
}

TEST(LineAnswer, GeoJsonIsCutAtTheAntimeridian) {
  const Json cut = geoJson(lineAlong({-16.5, 179.9}, 90, 100'000))["features"][0]["geometry"];
  ASSERT_EQ(cut["type"], "MultiLineString");
  ASSERT_EQ(cut["coordinates"].size(), 2U);
  EXPECT_EQ(cut["coordinates"][0].back()[0], 180.0);
  EXPECT_EQ(cut["coordinates"][1].front()[0], -180.0);
  EXPECT_EQ(cut["coordinates"][0].back()[1], cut["coordinates"][1].front()[1]);
  const Json west = geoJson(lineAlong({10, -179.99}, 270, 20'000))["features"][0]["geometry"];
  EXPECT_EQ(west["coordinates"][0].back()[0], -180.0);
  EXPECT_EQ(geoJson(lineAlong({10, 20}, 300, 20'000))["features"][0]["geometry"]["type"],
            "LineString");
}

PinQuestion subject(double observerAltitude, double pinAltitude) {
  return {.observer = ZVLocation({46, 7}, observerAltitude),
          .pin = ZVLocation({46.01, 7.02}, pinAltitude),
          .moment = utc(2026, 6, 21, 12)};
}

TEST(PinAnswer, HeightsNeedBothAltitudes) {
  PinQuestion question = subject(500, 1500);
  question.observerHeight = 2;
  question.pinHeight = 30;
  const PinReport known = answer(question);
  EXPECT_EQ(known.altitudeDifference, 1028);
  EXPECT_NEAR(*known.slantDistance, std::hypot(known.distance, 1028), 0.5);
  // The line of sight at the pin's own elevation would pass over it at no height; the Sun's
  // passes as much higher as it stands higher, but for the curvature of 2 km.
  const double higher =
      std::tan(known.sun.direction.elevation_ * kDegree) - std::tan(*known.elevation * kDegree);
  EXPECT_NEAR(*known.sun.height, higher * known.distance, 0.002 * *known.sun.height);
  EXPECT_EQ(known.bodyAbove(), &known.sun);

  question.pin = ZVLocation(Coordinate{46.01, 7.02});
  const Json unknown = json(answer(question));
  for (const char* key : {"slantDistance", "altitudeDifference", "elevation"}) {
    EXPECT_TRUE(unknown[key].is_null()) << key;
  }
  EXPECT_TRUE(unknown["sun"]["height"].is_null());
  EXPECT_TRUE(unknown["pin"]["altitude"].is_null());
  EXPECT_EQ(unknown["aboveBlackPin"]["body"], "sun");
}

TEST(PinAnswer, TheMoonTakesOverFromTheSunAndThenNobody) {
  PinQuestion question = subject(500, 600);
  question.moment = utc(2026, 12, 24, 0);  // a full Moon's midnight
  const PinReport night = answer(question);
  EXPECT_EQ(night.bodyAbove(), &night.moon);
  question.moment = utc(2026, 12, 9, 0);  // a new Moon's
  EXPECT_TRUE(json(answer(question))["aboveBlackPin"].is_null());
  question.pin = question.observer;
  EXPECT_TRUE(json(answer(question))["bearing"].is_null());
}

// Bowditch, American Practical Navigator (2002), table 12: from 100 feet the horizon is 11.7
// nautical miles away; table 14: its dip is 9.7'.
TEST(HorizonAnswer, AsNavigatorsHaveIt) {
  const HorizonReport report =
      answer(HorizonQuestion{.place = ZVLocation({48, -5}, 30.48 - kEyeHeight), .azimuth = 270});
  EXPECT_NEAR(*report.distance / 1852, 11.7, 0.2);
  EXPECT_NEAR(*report.dip * 60, 9.7, 0.2);
  EXPECT_LT(report.point->coordinate.longitude, -5.2);
  EXPECT_FALSE(answer(HorizonQuestion{.place = ZVLocation(Coordinate{48, -5})}).distance);
  EXPECT_FALSE(answer(HorizonQuestion{.place = ZVLocation({31.5, 35.5}, -430)}).distance);
}

}  // namespace
}  // namespace zenivo
