// What is seen of lunar eclipses.

#include "eclipses/MoonEclipse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "eclipses/Catalogue.h"
#include "eclipses/EclipseObserver.h"
#include "engine/Angles.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

LunarElements lunarElementsOf(const EclipseRow& row) {
  return elementVector(*row.lunarEclipse, row.mjd);
}

MoonEclipseTimesResult moonSeenFrom(const std::string& name, double latitude, double longitude) {
  return calculateMoonEclipseTimes(PtPosition(latitude, longitude),
                                   lunarElementsOf(eclipseNamed(name)));
}

std::vector<double> momentsOf(const MoonEclipseTimesResult& r) {
  return {r.mjdP1, r.mjdU1, r.mjdU2, r.mjdMid, r.mjdU3, r.mjdU4, r.mjdP4};
}

std::vector<double> elevationsOf(const MoonEclipseTimesResult& r) {
  return {r.elevationP1, r.elevationU1, r.elevationU2, r.elevationMid,
          r.elevationU3, r.elevationU4, r.elevationP4};
}

// F. Espenak's page of the eclipse of 2014 April 15, NASA/GSFC.
TEST(MoonEclipse, ContactsAsPublished) {
  const auto seen = moonSeenFrom("LE2014Apr15T", 0, -110);
  EXPECT_EQ(seen.type, 3);
  EXPECT_NEAR(seen.umbralMagnitude, 1.291, 0.002);
  EXPECT_NEAR(seen.penumbralMagnitude, 2.318, 0.002);
  const auto moments = momentsOf(seen);
  const char* const published[] = {"04:53:37", "05:58:19", "07:06:47", "07:45:40",
                                   "08:24:35", "09:33:04", "10:37:37"};
  for (std::size_t i = 0; i < moments.size(); ++i) {
    EXPECT_NEAR(secondsAfter(published[i], moments[i]), 0, 4) << i;
  }
}

// The Moon sets on the eclipse of 2022 May 16, the earlier the farther east.
TEST(MoonEclipse, TheHorizonDecidesTheType) {
  struct {
    double longitude;
    const char* isUp;  // P1 to P4
    int type;
  } const cases[] = {
      {-60, "1111111", 3}, {20, "1111000", 3}, {33, "1110000", 3},
      {45, "1100000", 2},  {60, "1000000", 1}, {75, "0000000", 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.longitude);
    const auto seen = moonSeenFrom("LE2022May16T", 0, c.longitude);
    std::string isUp;
    for (const double elevation : elevationsOf(seen)) isUp += elevation >= 0 ? '1' : '0';
    EXPECT_EQ(isUp, c.isUp);
    EXPECT_EQ(seen.type, c.type);
  }
}

void expectInOrder(const MoonEclipseTimesResult& seen, double kind) {
  std::vector<double> moments = momentsOf(seen);
  const std::size_t missing = kind >= 3 ? 4 : kind >= 2 ? 2 : 0;
  EXPECT_EQ(std::erase(moments, kAlwaysBelow), missing);
  EXPECT_TRUE(std::ranges::is_sorted(moments));
}

// Poles, the antimeridian and between, with every eclipse.  Where no contact is said to be seen
// the engine's Moon is down, but for the refraction that the elements' Moon does not have.
TEST(MoonEclipse, ContactsAreInOrderEverywhere) {
  int hidden = 0;
  for (const EclipseRow* row : eclipsesOfKind(EclipseKind::lunar)) {
    for (const double latitude : {-90.0, -66.0, 0.0, 50.0, 90.0}) {
      for (const double longitude : {-180.0, -77.0, 0.0, 100.0, 180.0}) {
        SCOPED_TRACE(testing::Message() << row->name << " at " << latitude << ", " << longitude);
        const PtPosition place(latitude, longitude);
        const auto seen = calculateMoonEclipseTimes(place, lunarElementsOf(*row));
        EXPECT_EQ(moonEclipseType(place, lunarElementsOf(*row)), seen.type);
        EXPECT_LE(seen.type, eclipseTypeAsInt(*row));
        if (seen.mjdP1 != kAlwaysBelow) {
          expectInOrder(seen, row->lunarEclipse->i5);
          continue;
        }
        ++hidden;
        EXPECT_EQ(elevationsOf(seen), std::vector<double>(7, kNoContactElevation));
        ephemeris::PtMoon moon(place);
        moon.computePosition(true, seen.mjdMid, row->lunarEclipse->i2 / 86400);
        EXPECT_LT(moon.horizontal().elevation_, 0.4);
      }
    }
  }
  EXPECT_GT(hidden, 5000);
}

// The Moon's limb meets the edge of the shadow at the catalogue's contacts, which
// were found with another enlargement by the atmosphere (Danjon's).
TEST(MoonEclipse, TheShadowReachesTheMoonAtTheContacts) {
  ephemeris::PtSun sun;
  ephemeris::PtMoon moon;
  const auto seen = moonSeenFrom("LE2019Jan21T", 0, -80);
  const auto separation = [&](double mjd) {
    constexpr double kDeltaT = 71.0 / 86400, kLightTime = 499.0 / 86400;
    sun.computePosition(true, mjd, kDeltaT - kLightTime);
    moon.computePosition(true, mjd, kDeltaT);
    const auto& s = sun.equatorial();
    const auto& m = moon.equatorial();
    return angularDistance(180 + s.phi() / kDegree, -s.theta() / kDegree, m.phi() / kDegree,
                           m.theta() / kDegree) /
           kDegree;
  };
  for (const double mjd :
       {seen.mjdP1, seen.mjdU1, seen.mjdU2, seen.mjdU3, seen.mjdU4, seen.mjdP4}) {
    const double distance = separation(mjd);
    const EarthShadow shadow = earthShadow(sun, moon);
    const bool isInside = mjd == seen.mjdU2 || mjd == seen.mjdU3;
    const bool isOutside = mjd == seen.mjdP1 || mjd == seen.mjdP4;
    const double edge = isOutside ? shadow.penumbraRadius : shadow.umbraRadius;
    EXPECT_NEAR(distance, edge + (isInside ? -1 : 1) * shadow.moonRadius, 0.017);
  }
}

}  // namespace
}  // namespace zenivo
