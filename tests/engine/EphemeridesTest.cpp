#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>

#include "LibnovaPeer.h"

#include "engine/Angles.h"
#include "engine/Nutation.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "time/PtDateTime.h"

namespace zenivo::ephemeris {
namespace {

double mjdOf(int year, int month, int day, int hour = 0) {
  return getMjd({year, month, day, hour, 0.0});
}

constexpr double kArcsecond = 1.0 / 3600.0;  // degree

// Meeus, Astronomical Algorithms (1998), examples 22.a and 12.a: 1987 April 10, 0h.
TEST(Nutation, Meeus) {
  const double T = julianCenturies(mjdOf(1987, 4, 10));
  const Nutation nutation = nutationAt(T);
  EXPECT_NEAR(nutation.longitude * kArcsecondsPerRadian, -3.788, 0.2);
  EXPECT_NEAR(nutation.obliquity * kArcsecondsPerRadian, 9.443, 0.1);
  EXPECT_NEAR(meanObliquity(T) / kDegree, 23.0 + 26.0 / 60.0 + 27.407 / 3600.0, 1e-6);
  PtSun sun;
  sun.computePosition(true, mjdOf(1987, 4, 10), 0.0);
  EXPECT_NEAR(sun.apparentSiderealTime(mjdOf(1987, 4, 10)), 13.0 + 10.0 / 60.0 + 46.1351 / 3600.0,
              0.02 / 3600.0);
}

// Meeus, example 25.b: 1992 October 13, 0h TD, from the complete VSOP87.
TEST(PtSun, Meeus) {
  PtSun sun;
  const double mjd = mjdOf(1992, 10, 13);
  const Vector3D geometric = sun.eclipticPosition(true, julianCenturies(mjd));
  EXPECT_NEAR(geometric.phi() / kDegree, 199.907347, 2 * kArcsecond);
  EXPECT_NEAR(geometric.theta() / kDegree, 0.62 * kArcsecond, 0.5 * kArcsecond);
  EXPECT_NEAR(geometric.r(), 0.99760853, 2e-6);
  // The apparent place there has aberration, -20.5 arcseconds along the ecliptic.
  const Vector3D apparent = sun.equatorialPosition(true, mjd, 0.0);
  EXPECT_NEAR(apparent.phi() / kDegree, (13 + 13.0 / 60 + 30.749 / 3600) * 15, 0.0065);
  EXPECT_NEAR(apparent.theta() / kDegree, -(7 + 47.0 / 60 + 1.74 / 3600), 0.0065);
}

// Meeus, example 47.a: 1992 April 12, 0h TD, from the main terms of ELP2000-82.
TEST(PtMoon, Meeus) {
  PtMoon moon;
  const double mjd = mjdOf(1992, 4, 12);
  const Vector3D mean = moon.eclipticPosition(true, julianCenturies(mjd));
  EXPECT_NEAR(mean.phi() / kDegree, 133.162655, 0.003);
  EXPECT_NEAR(mean.theta() / kDegree, -3.229126, 0.003);
  EXPECT_NEAR(mean.r(), 368409.7, 20.0);
  const Vector3D apparent = moon.equatorialPosition(true, mjd, 0.0);
  EXPECT_NEAR(apparent.phi() / kDegree, 134.688470, 0.003);
  EXPECT_NEAR(apparent.theta() / kDegree, 13.768368, 0.003);
  EXPECT_NEAR(std::asin(moon.sinParallax(apparent.r())) / kDegree, 0.991990, 1e-4);
}

/// Worst differences of a series from its peer, arcseconds.
struct Difference {
  double longitude = 0, latitude = 0, distance = 0;
};

template <class Body, class Peer>
Difference worstDifference(bool full, int firstYear, int lastYear, double step, Peer&& peer) {
  Body body;
  Difference worst;
  for (double mjd = mjdOf(firstYear, 1, 1); mjd < mjdOf(lastYear, 1, 1); mjd += step) {
    const Vector3D ours = body.eclipticPosition(full, julianCenturies(mjd));
    const libnova::Place theirs = peer(mjd);
    const double longitude = std::remainder(ours.phi() - theirs.longitude, kTwoPi);
    worst.longitude = std::max(worst.longitude, std::abs(longitude) * kArcsecondsPerRadian);
    worst.latitude =
        std::max(worst.latitude, std::abs(ours.theta() - theirs.latitude) * kArcsecondsPerRadian);
    worst.distance = std::max(worst.distance, std::abs(ours.r() / theirs.distance - 1.0));
  }
  return worst;
}

void printWorst(const char* series, const Difference& worst) {
  std::cout << "worst miss: " << series << ' ' << worst.longitude << "'' in longitude, "
            << worst.latitude << "'' in latitude, " << worst.distance << " of the distance\n";
}

TEST(PtSun, SeriesAgainstVsop87) {
  const auto modern = worstDifference<PtSun>(true, 1950, 2050, 61.3, libnova::sunAt);
  printWorst("full series of the Sun against VSOP87, 1950-2050:", modern);
  EXPECT_LT(modern.longitude, 2.5);
  EXPECT_LT(modern.latitude, 0.5);
  EXPECT_LT(modern.distance, 2.5e-6);
  const auto historic = worstDifference<PtSun>(true, 1800, 2200, 301.7, libnova::sunAt);
  printWorst("full series of the Sun against VSOP87, 1800-2200:", historic);
  EXPECT_LT(historic.longitude, 5.0);
  EXPECT_LT(worstDifference<PtSun>(false, 1900, 2100, 101.7, libnova::sunAt).longitude, 60.0);
}

TEST(PtMoon, SeriesAgainstElp2000) {
  const auto modern = worstDifference<PtMoon>(true, 1950, 2050, 181.37, libnova::moonAt);
  printWorst("full series of the Moon against ELP2000, 1950-2050:", modern);
  EXPECT_LT(modern.longitude, 5.0);
  EXPECT_LT(modern.latitude, 1.5);
  EXPECT_LT(modern.distance, 1e-4);
  const auto rough = worstDifference<PtMoon>(false, 1950, 2050, 601.7, libnova::moonAt);
  printWorst("fast series of the Moon against ELP2000, 1950-2050:", rough);
  EXPECT_LT(rough.longitude, 195.0);
  EXPECT_LT(rough.latitude, 60.0);
}

// The published rows of each series, summed up by a program of its own in decimal
// arithmetic of 40 places: every coefficient has its share in these digits.
TEST(Series, ToTheLastPlace) {
  const struct {
    double T;
    bool full;
    double sun[3], moon[3];
  } cases[] = {{-0.5,
                true,
                {4.887114656256195, -1.258876986499067e-7, 0.9832432768894095},
                {1.071844894088719, 0.0660012596698333, 399587.3626964792}},
               {0.75,
                true,
                {4.903224533522182, -4.528374361914e-9, 0.9833237147481955},
                {1.542138112285476, -0.03945303340008799, 405201.1751329688}},
               {-0.5,
                false,
                {4.887187195861895, 0.0, 1.00014015},
                {1.071482193468731, 0.06606718710725767, 384388.5514530897}},
               {0.75,
                false,
                {4.903273932031558, 0.0, 1.000139275},
                {1.542537808921158, -0.03942732812781624, 384388.5514530897}}};
  for (const auto& c : cases) {
    const Vector3D sun = PtSun().eclipticPosition(c.full, c.T);
    const Vector3D moon = PtMoon().eclipticPosition(c.full, c.T);
    EXPECT_NEAR(sun.phi(), c.sun[0], 1e-11);
    EXPECT_NEAR(sun.theta(), c.sun[1], 1e-15);
    EXPECT_NEAR(sun.r(), c.sun[2], 1e-13);
    EXPECT_NEAR(moon.phi(), c.moon[0], 1e-11);
    EXPECT_NEAR(moon.theta(), c.moon[1], 1e-11);
    EXPECT_NEAR(moon.r(), c.moon[2], 1e-6);
  }
  const struct {
    double T, longitude, obliquity, meanObliquity;  // arcseconds, degrees
  } frames[] = {{-0.5, -3.245372690580579, 8.316649162010793, 23.44579308940972},
                {0.75, -15.32477114348729, -4.384511032058799, 23.42953810527344}};
  for (const auto& f : frames) {
    EXPECT_NEAR(nutationAt(f.T).longitude * kArcsecondsPerRadian, f.longitude, 1e-8);
    EXPECT_NEAR(nutationAt(f.T).obliquity * kArcsecondsPerRadian, f.obliquity, 1e-8);
    EXPECT_NEAR(meanObliquity(f.T) / kDegree, f.meanObliquity, 1e-12);
  }
}

// As almanacs print them: the Sun at 1 au 15'59.63'' and 8.794'', at perihelion (0.98329)
// 16'15.9''; the Moon at its mean distance (57'02.6'') 15'32.6''.
TEST(Sizes, OfSunAndMoon) {
  const PtSun sun;
  EXPECT_NEAR(sun.semiDiameter(sun.sinParallax(1.0), 1.0) * 3600.0, 959.63, 0.005);
  EXPECT_NEAR(sun.semiDiameter(sun.sinParallax(0.98329), 0.98329) * 3600.0, 975.94, 0.05);
  EXPECT_NEAR(std::asin(sun.sinParallax(1.0)) * kArcsecondsPerRadian, 8.794, 0.0005);
  const PtMoon moon;
  EXPECT_NEAR(std::asin(moon.sinParallax(384401.0)) * kArcsecondsPerRadian, 3422.6, 0.1);
  EXPECT_NEAR(moon.semiDiameter(moon.sinParallax(384401.0), 384401.0) * 3600.0, 932.6, 0.1);
}

// On the equator at the equinox, three hours after noon.
TEST(PtPlanet, AnEquinoxAfternoon) {
  PtSun sun(PtPosition(0, 0));
  sun.computePosition(true, mjdOf(2026, 3, 20, 15), 8e-4);  // the equinox, 45 degrees high
  EXPECT_NEAR(sun.shadowRatio(), 1.0, 0.1);
  EXPECT_NEAR(sun.horizontal().azimuth_, 270.0, 1.0);
  EXPECT_NEAR(sun.hourAngle() / kDegree, 43.2, 0.3);
}

TEST(PtPlanet, HorizontalToEquatorialAndBack) {
  const double mjd = mjdOf(2026, 8, 12, 18);
  for (const double latitude : {-90.0, -45.0, -1e-9, 0.0, 23.4, 66.6, 89.999, 90.0}) {
    for (const double longitude : {-180.0, -75.3, 0.0, 180.0}) {
      PtMilkyWay point(PtPosition(latitude, longitude, 4000, 0));
      for (double azimuth = 0.0; azimuth < 360.0; azimuth += 22.5) {
        for (const double elevation : {-89.0, -10.0, 0.0, 45.0, 89.9, 90.0}) {
          const Vector3D place = point.equatorialFromHorizontal(mjd, 8e-4, azimuth, elevation);
          const TopocentricPosition seen =
              point.topocentric(place, point.apparentSiderealTime(mjd));
          const PtPolar back = point.horizontalFrom(seen.hourAngle, seen.declination, 1.0);
          // Near the pole azimuth and sidereal angle are one; compare the directions.
          ASSERT_NEAR(angularDistance(azimuth, elevation, back.azimuth_, back.elevation_), 0.0,
                      3e-8)
              << latitude << " " << azimuth << " " << elevation;
          ASSERT_GE(back.azimuth_, 0.0);
          ASSERT_LT(back.azimuth_, 360.0);
        }
      }
    }
  }
}

TEST(PtPlanet, EqualQueriesLeaveEqualStates) {
  const PtPosition place(-33.9, 151.2, 20, 20);
  PtMoon fresh(place), used(place);
  for (int hour = 0; hour < 48; ++hour) used.computePosition(hour % 2 == 0, 60000 + hour / 24.0, 0);
  used.riseSet(EventKind::riseSet, 60000.0, 8e-4);
  for (PtMoon* moon : {&used, &fresh, &fresh}) moon->computePosition(true, 60123.4, 8e-4);
  EXPECT_EQ(used.horizontal(), fresh.horizontal());
  EXPECT_EQ(used.semiDiameter(), fresh.semiDiameter());
  EXPECT_EQ(used.equatorial().phi(), fresh.equatorial().phi());
  EXPECT_EQ(used.ecliptic().r(), fresh.ecliptic().r());
  EXPECT_EQ(used.nutationLongitude(), fresh.nutationLongitude());
}

// What is not a number gives none, and searches that find nothing: never a body that stays
// below the horizon.
TEST(PtPlanet, NoPlaceAndNoMomentHaveNoEvents) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  const struct {
    PtPosition place;
    double mjd, deltaT;
  } cases[] = {{{kNone, 11}, 60000, 8e-4},     {{47, kNone}, 60000, 8e-4},
               {{47, 11, kNone}, 60000, 8e-4}, {{47, 11}, kNone, 8e-4},
               {{47, 11}, 60000, kNone},       {{47, 11}, INFINITY, 8e-4}};
  const auto expectNothing = [](PtPlanet&& body, double mjd, double deltaT) {
    body.computePosition(true, mjd, deltaT);
    EXPECT_TRUE(std::isnan(body.horizontal().azimuth_));
    EXPECT_TRUE(std::isnan(body.horizontal().elevation_));
    EXPECT_EQ(body.riseSet(EventKind::riseSet, mjd, deltaT), RiseSet());
    if (std::isnan(body.getPosition().altitude())) return;
    EXPECT_EQ(body.riseSet(EventKind::civil, mjd, deltaT), RiseSet());
    if (std::isnan(body.getPosition().latitude())) return;
    EXPECT_EQ(body.transit(mjd, deltaT), kNotThisDay);
  };
  for (const auto& [place, mjd, deltaT] : cases) {
    expectNothing(PtSun(place), mjd, deltaT);
    expectNothing(PtMoon(place), mjd, deltaT);
  }
  EXPECT_EQ(PtSun(PtPosition(47, 11, 0, kNone)).riseSet(EventKind::riseSet, 60000, 8e-4),
            RiseSet());
}

// The Moon at the zenith is an Earth's radius nearer than at the horizon, and by that
// looks larger.
TEST(PtPlanet, TheMoonIsLargerOverhead) {
  PtMoon moon;
  for (int minute = 0; minute < 1440; minute += 10) {
    moon.computePosition(true, mjdOf(2026, 3, 1) + minute / 1440.0, 8e-4);
    const double geocentric = std::asin(1738.0 / moon.horizontal().distance_) / kDegree;
    const double lift = 1.0 + std::sin(moon.horizontal().elevation_ * kDegree) / 60.0;
    EXPECT_NEAR(moon.semiDiameter() / geocentric, lift, 0.002) << minute;
  }
}

// Meeus, example 16.a: the lower limb of the Sun stands at 0 degrees 30', where
// refraction is 28.754', and its upper limb at a true 33.25', where it is 24.618'; both
// for 1010 mbar and 10 degrees Celsius.
TEST(Refraction, Meeus) {
  const double density = 1013.0 / 1010.0 * 283.0 / 288.0;
  EXPECT_NEAR(refractionApparentToTrue(0.5) * 60.0, 28.754 * density, 0.002);
  EXPECT_NEAR(refractionTrueToApparent(33.25 / 60.0) * 60.0, 24.618 * density, 0.004);
  EXPECT_NEAR(refractionTrueToApparent(90.0), 0.0, 1e-5);
  EXPECT_NEAR(refractionApparentToTrue(90.0), 0.0, 1e-5);
}

TEST(Refraction, ThereAndBack) {
  for (double h = -3.5; h < 90.0; h += 0.01) {
    const double apparent = h + refractionTrueToApparent(h);
    // Saemundsson chose his constants to agree with Bennett's to 4 arcseconds.
    ASSERT_NEAR(apparent - refractionApparentToTrue(apparent), h, h > 0 ? 0.0015 : 0.012) << h;
  }
}

TEST(Refraction, FadesOutWithoutAStep) {
  const auto smooth = [](double (*refraction)(double), double h) {
    EXPECT_NEAR(refraction(h - 1e-6), refraction(h + 1e-6), 1e-4) << h;
  };
  for (const double h : {-3.54, -3.64}) smooth(refractionTrueToApparent, h);
  for (const double h : {-3.21783, -3.31783}) smooth(refractionApparentToTrue, h);
  const PtSun sun;
  for (const double h : {-3.6401, -18.0, -90.0}) EXPECT_EQ(sun.refractedElevation(h), h);
  for (double h = 89.9; h <= 90.0; h += 1e-4) EXPECT_LE(sun.refractedElevation(h), 90.0);
}

// Meeus, example 11.a: Palomar, 33 21 22 N at 1706 m.
TEST(PtPosition, Meeus) {
  const PtPosition palomar(33.0 + 21.0 / 60.0 + 22.0 / 3600.0, -116.8625, 1706, 0);
  EXPECT_NEAR(palomar.rhoSinPhi(), 0.546861, 1e-6);
  EXPECT_NEAR(palomar.rhoCosPhi(), 0.836339, 1e-6);
  EXPECT_NEAR(palomar.rho(), std::hypot(0.546861, 0.836339), 1e-6);
  EXPECT_NEAR(PtPosition(90, 0).rho(), 6356.755 / 6378.14, 1e-6);
}

}  // namespace
}  // namespace zenivo::ephemeris
