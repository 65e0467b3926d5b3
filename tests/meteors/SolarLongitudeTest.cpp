#include "meteors/SolarLongitude.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/Angles.h"
#include "engine/PtSun.h"
#include "meteors/Places.h"
#include "time/PtDateTime.h"

namespace zenivo {
namespace {

// Meeus, Astronomical Algorithms (1998), example 25.b: 1992 October 13, 0h TD.
// Geometric longitude of date 199.907372 degrees; 7.2138 years of precession (50.288
// arcseconds each) before J2000.0.
TEST(SolarLongitude, ExampleOfMeeus) {
  EXPECT_NEAR(calculateSolarLongitudeForMjd(48908.0), 199.907372 + 7.2138 * 50.288 / 3600.0, 1e-3);
}

// The engine's Sun by Newcomb's theory, carried back to J2000.0 by the general precession
// (Lieske 1977).
TEST(SolarLongitude, AgreesWithTheSun) {
  ephemeris::PtSun sun;
  double worst = 0;
  for (double mjd = getMjd({1900, 1, 1, 0, 0}); mjd < getMjd({2100, 1, 1, 0, 0}); mjd += 12.7) {
    const double T = julianCenturies(mjd);
    const double precession = (5029.0966 * T + 1.11113 * T * T) / 3600.0;
    const double ofDate = sun.eclipticPosition(true, T).phi() / kDegree;
    const double longitude = calculateSolarLongitudeForMjd(mjd);
    ASSERT_GE(longitude, 0.0);
    ASSERT_LE(longitude, 360.0);
    worst = std::max(worst, std::abs(angleDifference(longitude, ofDate - precession)));
  }
  EXPECT_LT(worst, 0.002);
}

// International Meteor Organization, Meteor Shower Calendars 2021 to 2026 (ed. J. Rendtel): the
// predicted maxima of the major showers, to the hour, or to the day (h = 12) where no more is
// printed than the day and the solar longitude in whole degrees (SDA 128, ORI 208).
TEST(PredictedPeak, MaximaOfTheImoCalendars) {
  const std::pair<const char*, std::vector<PtDateTime>> hourly[] = {
      {"QUA", {{2024, 1, 4, 9, 0}, {2025, 1, 3, 15, 0}, {2026, 1, 3, 21, 0}}},
      {"LYR", {{2024, 4, 22, 7, 0}, {2025, 4, 22, 13, 30}, {2026, 4, 22, 19, 40}}},
      {"ETA", {{2025, 5, 6, 3, 0}}},
      {"PER", {{2024, 8, 12, 14, 0}, {2025, 8, 12, 20, 0}, {2026, 8, 13, 2, 0}}},
      {"LEO", {{2021, 11, 17, 17, 0}, {2022, 11, 17, 23, 0}, {2023, 11, 18, 5, 0}}},
      {"GEM", {{2024, 12, 14, 1, 0}, {2025, 12, 14, 8, 0}, {2026, 12, 14, 14, 0}}},
      {"URS", {{2024, 12, 22, 10, 0}}},
  };
  const std::pair<const char*, std::vector<PtDateTime>> daily[] = {
      {"SDA", {{2024, 7, 31, 12, 0}, {2025, 7, 31, 12, 0}, {2026, 7, 31, 12, 0}}},
      {"ORI", {{2024, 10, 21, 12, 0}, {2025, 10, 21, 12, 0}, {2026, 10, 21, 12, 0}}},
  };
  const MeteorShowers catalogue(std::nullopt);
  const auto expectNear = [&](const auto& maxima, double hours) {
    for (const auto& [code, published] : maxima) {
      const MeteorShower& shower = showerWithCode(catalogue, code);
      for (const PtDateTime& maximum : published) {
        const double mjd =
            predictedPeakMjd(shower.solarLongitudeAtPeak, maximum.year, shower.month);
        EXPECT_NEAR((mjd - getMjd(maximum)) * 24.0, 0.0, hours) << code << ' ' << maximum.year;
      }
    }
  };
  expectNear(hourly, 1.0);
  expectNear(daily, 12.0);
}

// The fit and the series are independent: at its peak each shower of the list stands at
// its longitude, in the year that was asked for.
TEST(PredictedPeak, FallsOnTheSolarLongitude) {
  const MeteorShowers catalogue(std::nullopt);
  ASSERT_EQ(catalogue.showers().size(), 40U);
  double worst = 0;
  for (const auto& shower : catalogue.showers()) {
    for (std::int32_t year = 1950; year <= 2050; ++year) {
      const double mjd = predictedPeakMjd(shower->solarLongitudeAtPeak, year, shower->month);
      const double off =
          angleDifference(calculateSolarLongitudeForMjd(mjd), shower->solarLongitudeAtPeak);
      worst = std::max(worst, std::abs(off));
      const double midMonth = getMjd({year, shower->month, 15, 0, 0});
      ASSERT_LT(std::abs(mjd - midMonth), 25.0) << shower->iauCode << ' ' << year;
    }
  }
  EXPECT_LT(worst, 0.013);  // 19 minutes
}

}  // namespace
}  // namespace zenivo
