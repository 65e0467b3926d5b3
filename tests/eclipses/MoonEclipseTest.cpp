// What is seen of lunar eclipses.

#include "eclipses/MoonEclipse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "eclipses/Catalogue.h"
#include "eclipses/EclipseObserver.h"
#include "engine/Angles.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

LunarElements elementsOf(const EclipseRow& row) {
  return elementVector(*row.lunarEclipse, row.mjd);
}

MoonEclipseTimesResult seenFrom(const std::string& name, double latitude, double longitude) {
  return calculateMoonEclipseTimes(PtPosition(latitude, longitude), elementsOf(eclipseNamed(name)));
}

std::vector<double> momentsOf(const MoonEclipseTimesResult& r) {
  return {r.mjdP1, r.mjdU1, r.mjdU2, r.mjdMid, r.mjdU3, r.mjdU4, r.mjdP4};
}

std::vector<double> elevationsOf(const MoonEclipseTimesResult& r) {
  return {r.elevationP1, r.elevationU1, r.elevationU2, r.elevationMid,
          r.elevationU3, r.elevationU4, r.elevationP4};
}

// F. Espenak's pages of these eclipses, NASA/GSFC: contacts in UT from P1 to P4,
// magnitudes.
TEST(MoonEclipse, ContactsAsPublished) {
  struct {
    const char* name;
    double longitude;  // where the Moon is up all the time
    const char* contacts[7];
    double umbral, penumbral;
  } const cases[] = {
      {"LE2014Apr15T",
       -110,
       {"04:53:37", "05:58:19", "07:06:47", "07:45:40", "08:24:35", "09:33:04", "10:37:37"},
       1.291,
       2.318},
      {"LE2015Sep28T",
       -40,
       {"00:11:47", "01:07:11", "02:11:10", "02:47:07", "03:23:05", "04:27:03", "05:22:27"},
       1.276,
       2.230},
      {"LE2019Jan21T",
       -80,
       {"02:36:30", "03:33:54", "04:41:17", "05:12:16", "05:43:16", "06:50:39", "07:48:00"},
       1.195,
       2.168},
      {"LE2022May16T",
       -60,
       {"01:32:07", "02:27:53", "03:29:03", "04:11:28", "04:53:56", "05:55:07", "06:50:48"},
       1.414,
       2.373},
  };
  for (const auto& c : cases) {
    const auto seen = seenFrom(c.name, 0, c.longitude);
    EXPECT_EQ(seen.type, 3) << c.name;
    EXPECT_NEAR(seen.umbralMagnitude, c.umbral, 0.002);
    EXPECT_NEAR(seen.penumbralMagnitude, c.penumbral, 0.002);
    const auto moments = momentsOf(seen);
    for (std::size_t i = 0; i < moments.size(); ++i) {
      EXPECT_NEAR(secondsAfter(c.contacts[i], moments[i]), 0, 4) << c.name << " " << i;
    }
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
    const auto seen = seenFrom("LE2022May16T", 0, c.longitude);
    std::string isUp;
    for (const double elevation : elevationsOf(seen)) isUp += elevation >= 0 ? '1' : '0';
    EXPECT_EQ(isUp, c.isUp);
    EXPECT_EQ(seen.type, c.type);
  }
}

TEST(MoonEclipse, APlaceThatSeesNothingHasOnlyTheGreatestMoment) {
  const auto seen = seenFrom("LE2022May16T", 35, 139);
  EXPECT_NEAR(secondsAfter("04:11:28", seen.mjdMid), 0, 4);
  EXPECT_EQ(seen.elevationMid, kNoContactElevation);
  EXPECT_EQ(seen.mjdP1, kAlwaysBelow);
  EXPECT_EQ(seen.mjdU2, kAlwaysBelow);
  EXPECT_EQ(seen.mjdP4, kAlwaysBelow);
  EXPECT_EQ(seen.umbralMagnitude, 0);
}

void expectInOrder(const MoonEclipseTimesResult& seen, double kind) {
  double last = -std::numeric_limits<double>::infinity();
  for (const double mjd : momentsOf(seen)) {
    if (mjd == kAlwaysBelow) continue;
    EXPECT_GT(mjd, last);
    last = mjd;
  }
  EXPECT_EQ(seen.mjdU1 == kAlwaysBelow, kind >= 3);
  EXPECT_EQ(seen.mjdU4 == kAlwaysBelow, kind >= 3);
  EXPECT_EQ(seen.mjdU2 == kAlwaysBelow, kind >= 2);
  EXPECT_EQ(seen.mjdU3 == kAlwaysBelow, kind >= 2);
}

// Where no contact is said to be seen the engine's Moon is down at each of them, but
// for the refraction that the elements' Moon does not have.
void expectHidden(const PtPosition& place, const EclipseLunarRow& lunar, double mjdMid) {
  ephemeris::PtMoon moon(place);
  for (const double hours : {lunar.p1, lunar.mid, lunar.p4}) {
    moon.computePosition(true, mjdMid + (hours - lunar.mid) / 24, lunar.i2 / 86400);
    EXPECT_LT(moon.horizontal().elevation_, 0.4);
  }
}

// Poles, the antimeridian and between, with every eclipse.
TEST(MoonEclipse, ContactsAreInOrderEverywhere) {
  int hidden = 0;
  for (const EclipseRow* row : eclipsesOfKind(EclipseKind::lunar)) {
    for (const double latitude : {-90.0, -66.0, 0.0, 50.0, 90.0}) {
      for (const double longitude : {-180.0, -77.0, 0.0, 100.0, 180.0}) {
        SCOPED_TRACE(testing::Message() << row->name << " at " << latitude << ", " << longitude);
        const PtPosition place(latitude, longitude);
        const auto seen = calculateMoonEclipseTimes(place, elementsOf(*row));
        EXPECT_EQ(moonEclipseType(place, elementsOf(*row)), seen.type);
        EXPECT_LE(seen.type, eclipseTypeAsInt(*row));
        for (const double elevation : elevationsOf(seen)) EXPECT_TRUE(std::isfinite(elevation));
        if (seen.mjdP1 == kAlwaysBelow) {
          expectHidden(place, *row->lunarEclipse, seen.mjdMid);
          ++hidden;
        } else {
          expectInOrder(seen, row->lunarEclipse->i5);
        }
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
  const auto seen = seenFrom("LE2019Jan21T", 0, -80);
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
