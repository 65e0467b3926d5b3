#include "planner/TerminatorLine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "engine/Angles.h"
#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

constexpr double kElevations[] = {6, -0.8, -6, -12, -18};

/// The Sun's geometric elevation in degrees at a point of the map.
double elevationAt(const Coordinate& point, double declination, double longitude) {
  const double latitude = point.latitude * kDegree;
  const double hourAngle = point.longitude * kDegree - longitude;
  return std::asin(std::sin(latitude) * std::sin(declination) +
                   std::cos(latitude) * std::cos(declination) * std::cos(hourAngle)) /
         kDegree;
}

bool isAscending(const TerminatorCircle& circle) {
  return std::ranges::is_sorted(circle, {}, &Coordinate::longitude);
}

/// Points next to one another, the last and the first included, are close by.
bool isUnbrokenLoop(const TerminatorCircle& circle) {
  for (std::size_t i = 0; i < circle.size(); ++i) {
    const Coordinate &a = circle[i], &b = circle[(i + 1) % circle.size()];
    const double cosine = std::sin(a.latitude * kDegree) * std::sin(b.latitude * kDegree) +
                          std::cos(a.latitude * kDegree) * std::cos(b.latitude * kDegree) *
                              std::cos((a.longitude - b.longitude) * kDegree);
    if (cosine < std::cos(2.01 * kDegree)) return false;
  }
  return true;
}

TEST(TerminatorLine, TheSunStandsAtTheElevationOfTheLine) {
  std::mt19937_64 random(180);
  std::uniform_real_distribution<double> tilt(-23.44, 23.44), turn(-4, 7);
  TerminatorLine line;
  for (int i = 0; i < 500; ++i) {
    const double declination = tilt(random) * kDegree, longitude = turn(random);
    fillTerminatorLine(line, declination, longitude);
    for (std::size_t c = 0; c < line.size(); ++c) {
      for (const Coordinate& point : line[c]) {
        ASSERT_NEAR(elevationAt(point, declination, longitude), kElevations[c], 1e-9);
        ASSERT_TRUE(isValid(point));
      }
      EXPECT_TRUE(isUnbrokenLoop(line[c]));
      // It runs around the Earth when it holds one pole, where the Sun is higher than
      // the line, and not the other.
      const bool runsAround = std::abs(declination / kDegree) > std::abs(kElevations[c]) + 1e-6;
      if (!runsAround) continue;
      EXPECT_TRUE(isAscending(line[c])) << declination / kDegree << " " << longitude;
    }
  }
}

class TerminatorLineOfSession : public SessionTest {};

TEST_F(TerminatorLineOfSession, StandsUnderTheRealSun) {
  Session session(ZVObserver(Coordinate{-33.9, 151.2}), zoneNamed("Australia/Sydney"),
                  dateIn("Australia/Sydney", 2026, 11, 5, 18));
  session->mapSettings().twilightsLayer.isVisible = true;
  session->twilightLayerChanged();
  EXPECT_EQ(session->getTerminatorLine(), nullptr) << "only while the screen is there";
  session->createResources();
  session->setCurrentDate(session->currentDate().dateByAddingTimeInterval(3600));
  const PtDateTime record = ptDateTimeForDate(session->currentDate());
  for (std::size_t c = 0; c < 5; ++c) {
    for (std::size_t k = 0; k < kTerminatorPoints; k += 17) {
      const Coordinate point = (*session->getTerminatorLine())[c][k];
      ephemeris::PtSun sun(PtPosition(point.latitude, point.longitude));
      const double sine = sun.sinAltitude(getMjd(record), getDeltaT(record), 0);
      EXPECT_NEAR(std::asin(sine) / kDegree, kElevations[c], 1e-6);
    }
  }
  // Switched off it is left alone; the layer's switch brings it up to date.
  session->mapSettings().twilightsLayer.isVisible = false;
  const TerminatorLine before = *session->getTerminatorLine();
  session->setCurrentDate(session->currentDate().dateByAddingTimeInterval(3600));
  EXPECT_EQ(*session->getTerminatorLine(), before);
  session->mapSettings().twilightsLayer.isVisible = true;
  session->twilightLayerChanged();
  EXPECT_NE(*session->getTerminatorLine(), before);
  session->freeResources();
  EXPECT_EQ(session->getTerminatorLine(), nullptr);
}

}  // namespace
}  // namespace zenivo::testing
