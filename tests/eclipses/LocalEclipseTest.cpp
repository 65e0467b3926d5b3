// What of an eclipse is above the horizon, and how much of it.

#include "eclipses/LocalEclipse.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "eclipses/Catalogue.h"
#include "eclipses/MoonEclipse.h"
#include "eclipses/SunEclipse.h"
#include "engine/Angles.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"

namespace zenivo {
namespace {

// The Sun rises eclipsed over New York on 2025 March 29, the Moon totally eclipsed over Berlin
// on September 7; over Paris it sets partly eclipsed on March 14, and on 2021 November 19 it is
// up around greatest eclipse alone at 69 degrees south.
TEST(LocalEclipse, TheLargestPhaseThatIsSeen) {
  struct {
    const char* name;
    double latitude, longitude;
    const char* largest;
    double magnitude;
    double central, centralSeen;  // minutes
    int type;
  } const cases[] = {
      {"SE2025Mar29P", 40.7127, -74.006, "rise", 0.38, 0, 0, 1},
      {"LE2025Sep07T", 52.52, 13.405, "mid", 1.362, 82.1, 76, 3},
      {"LE2025Mar14T", 48.8534, 2.3488, "set", 0.84, 65.4, 0, 2},
      {"LE2021Nov19P", -69, -140, "mid", 0.974, 0, 0, 0},
      {"SE2024Apr08T", 32.7767, -96.797, "max", 1.0558, 3.82, 3.82, 3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const auto local =
        localEclipse(PtPosition(c.latitude, c.longitude), eclipseNamed(c.name)).value();
    ASSERT_TRUE(local.seen);
    EXPECT_EQ(local.type, c.type);
    EXPECT_EQ(local.seen->largest.key, c.largest);
    EXPECT_NEAR(local.seen->largest.phase.magnitude, c.magnitude, 0.01);
    EXPECT_NEAR(local.centralSeconds / 60, c.central, 0.1);
    EXPECT_NEAR(local.seen->centralSeconds / 60, c.centralSeen, 0.5);
  }
}

// Over Madrid all but 0.04 % of the Sun is covered on 2026 August 12.
TEST(LocalEclipse, WhatIsNotTotalIsNotWholly) {
  const auto madrid = localEclipse(PtPosition(40.4168, -3.7038), eclipseNamed("SE2026Aug12T"));
  EXPECT_EQ(madrid->type, 1);
  EXPECT_GT(madrid->seen->largest.phase.covered, 0.999);
  EXPECT_LT(madrid->seen->largest.phase.covered, 0.9999);
}

// Walked in steps of two minutes wherever the body is up.
TEST(LocalEclipse, NothingLargerIsAboveTheHorizon) {
  std::mt19937_64 random(20260812);
  std::uniform_real_distribution<double> sine(-1, 1), longitude(-180, 180);
  int seen = 0, hidden = 0;
  for (int i = 0; i < 400; ++i) {
    const EclipseRow& row = catalogueRows()[random() % catalogueRows().size()];
    const PtPosition place(std::asin(sine(random)) / kDegree, longitude(random));
    const auto local = localEclipse(place, row).value();
    if (!local.reachesPlace) continue;
    const auto magnitudeAt = [&](double mjd) {
      if (row.solarEclipse) {
        return sunPhaseAt(place, elementVector(*row.solarEclipse, row.mjd), mjd).magnitude;
      }
      return moonPhaseInShadowAt(elementVector(*row.lunarEclipse, row.mjd), mjd).umbralMagnitude;
    };
    ephemeris::PtSun sun(place);
    ephemeris::PtMoon moon(place);
    ephemeris::PtPlanet& body =
        row.isSolarEclipse() ? static_cast<ephemeris::PtPlanet&>(sun) : moon;
    for (double mjd = local.contacts.front().mjd; mjd < local.contacts.back().mjd;
         mjd += 2.0 / 1440) {
      body.computePosition(true, mjd, 70.0 / 86400);
      if (body.horizontal().elevation_ < 0.2) continue;
      ASSERT_TRUE(local.seen) << row.name << place.latitude() << " " << place.longitude();
      EXPECT_LE(magnitudeAt(mjd), local.seen->largest.phase.magnitude + 0.005) << row.name;
      EXPECT_GE(mjd, local.seen->from - 1.0 / 1440);
      EXPECT_LE(mjd, local.seen->until + 1.0 / 1440);
    }
    ++(local.seen ? seen : hidden);
  }
  EXPECT_GT(seen, 80);
  EXPECT_GT(hidden, 30);
}

// The engine's Sun and Moon, from other series, cover each other as the elements say.
TEST(LocalEclipse, TheEngineSeesTheSamePhase) {
  std::mt19937_64 random(20170821);
  std::uniform_real_distribution<double> part(0, 1), sine(-1, 1), longitude(-180, 180);
  const auto rows = eclipsesOfKind(EclipseKind::solar);
  double worst = 0;
  for (int i = 0; i < 1000; ++i) {
    const EclipseRow& row = *rows[random() % rows.size()];
    const PtPosition place(std::asin(sine(random)) / kDegree, longitude(random));
    const SolarElements elements = elementVector(*row.solarEclipse, row.mjd);
    const auto times = calculateSunEclipseTimes(place, elements);
    if (times.mjdC1 == kAlwaysBelow) continue;
    const double mjd = times.mjdC1 + part(random) * (times.mjdC4 - times.mjdC1);
    const auto where = [&](ephemeris::PtPlanet& body, double lightTime) {
      const double deltaT = (row.solarEclipse->deltaT - lightTime) / 86400;
      const Vector3D apparent = body.equatorialPosition(true, mjd, deltaT);
      return body.topocentric(apparent, body.apparentSiderealTime(mjd));
    };
    ephemeris::PtSun sun(place);
    ephemeris::PtMoon moon(place);
    const auto s = where(sun, 499), m = where(moon, 0);
    const double apart = angularDistance(s.hourAngle / kDegree, s.declination / kDegree,
                                         m.hourAngle / kDegree, m.declination / kDegree) /
                         kDegree;
    const double magnitude = (s.semiDiameter + m.semiDiameter - apart) / (2 * s.semiDiameter);
    const SunPhase phase = sunPhaseAt(place, elements, mjd);
    if (apart < std::abs(s.semiDiameter - m.semiDiameter)) continue;  // it is the ratio there
    worst = std::max(worst, std::abs(magnitude - phase.magnitude));
  }
  fmt::print("phases beside the engine's: {:.4f} of the Sun's diameter at most\n", worst);
  EXPECT_LT(worst, 0.0045);
}

// The umbra's edge is on the Moon's limb when the catalogue says so.
TEST(LocalEclipse, PhasesOfTheMoonMeetTheContacts) {
  double worst = 0;
  for (const EclipseRow* row : eclipsesOfKind(EclipseKind::lunar)) {
    const LunarElements elements = elementVector(*row->lunarEclipse, row->mjd);
    const auto& l = *row->lunarEclipse;
    const double mid = calculateMoonEclipseTimes(PtPosition(), elements).mjdMid;
    const auto at = [&](double hours) {
      return moonPhaseInShadowAt(elements, mid + (hours - l.mid) / 24);
    };
    EXPECT_NEAR(at(l.mid).umbralMagnitude, l.i3, 1e-9);
    EXPECT_NEAR(at(l.p1).penumbralMagnitude, 0, 0.02);
    if (l.i5 < 3) worst = std::max(worst, std::abs(at(l.u1).umbralMagnitude));
    if (l.i5 < 3) worst = std::max(worst, std::abs(at(l.u4).umbralMagnitude));
    if (l.i5 < 2) worst = std::max(worst, std::abs(at(l.u2).umbralMagnitude - 1));
    if (l.i5 < 2) worst = std::max(worst, std::abs(at(l.u3).umbralMagnitude - 1));
  }
  fmt::print("umbral magnitudes at the contacts: {:.4f} off at most\n", worst);
  EXPECT_LT(worst, 0.0075);
}

// In April 2024 the Earth's rotation was 4.8 s from what the elements of 2006 predict (deltaT
// 69.2 s, IERS, in place of 74.0 s).
TEST(LocalEclipse, TheUncertaintyCoversWhatCame) {
  EXPECT_NEAR(contactUncertainty(60408), std::hypot(3, 4.8), 1);
  EXPECT_EQ(contactUncertainty(50000), 3);
  EXPECT_GT(contactUncertainty(120000), 100);
}

}  // namespace
}  // namespace zenivo
