#include "planner/DaySearch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "planner/SessionFixture.h"

namespace zenivo::testing {
namespace {

class DaySearchTest : public SessionTest {};

/// A sentinel, or a moment in the day's window of 24 hours.
::testing::AssertionResult isInDay(double mjd, double mjdAt0, double before = 0) {
  if (!drawEventAtMjd(mjd) || (mjd >= mjdAt0 - before && mjd <= mjdAt0 + 1))
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << mjd << " in the day from " << mjdAt0;
}

void expectRiseTransitSet(const CelestialBodyEvent& event, const LocalDay& day) {
  EXPECT_TRUE(isInDay(event.mjdRise(), day.mjdAt0));
  EXPECT_TRUE(isInDay(event.mjdSet(), day.mjdAt0));
  EXPECT_TRUE(isInDay(event.mjdTransit(), day.mjdAt0, 0.02));
  EXPECT_EQ(event.riseAzimuth == kNoAzimuth, !drawEventAtMjd(event.mjdRise()));
  EXPECT_EQ(event.setAzimuth == kNoAzimuth, !drawEventAtMjd(event.mjdSet()));
  for (const double azimuth : {event.riseAzimuth, event.setAzimuth}) {
    EXPECT_TRUE(azimuth == kNoAzimuth || (azimuth >= 0 && azimuth < 360)) << azimuth;
  }
}

TEST_F(DaySearchTest, EventsOfRandomPlacesAndDaysLieInTheirDay) {
  std::mt19937_64 random(2200);
  std::uniform_real_distribution<double> latitude(-90, 90), longitude(-180, 180);
  ephemeris::PtSun sun;
  ephemeris::PtMoon moon;
  for (int i = 0; i < 10'000 && !HasFailure(); ++i) {
    const double degrees = i % 25 == 0 ? (i % 2 == 0 ? 90 : -90) : latitude(random);
    const PtPosition place(degrees, longitude(random), i % 3 == 0 ? 2000 : 0,
                           i % 6 == 0 ? 1500 : 0);
    sun.setPosition(place);
    moon.setPosition(place);
    const LocalDay day(dateIn("GMT", 1800, 1, 1 + static_cast<int>(random() % 146'000)));
    const SunEvent sunEvent = sunEventOfDay(sun, day, gmtCachedCalendar());
    expectRiseTransitSet(sunEvent, day);
    for (const auto& twilight :
         {sunEvent.civilTwilight, sunEvent.nauticalTwilight, sunEvent.astronomicalTwilight,
          sunEvent.blueHour, sunEvent.goldenHour,
          sunEvent.astronomicalTwilight2.value_or(TwilightEvent())}) {
      EXPECT_TRUE(isInDay(twilight.mjdStart(), day.mjdAt0));
      EXPECT_TRUE(isInDay(twilight.mjdEnd(), day.mjdAt0));
    }
    expectRiseTransitSet(moonEventOfDay(moon, day, nullptr, gmtCachedCalendar()), day);
    EXPECT_FALSE(std::isnan(sun.horizontal().azimuth_) || std::isnan(moon.horizontal().azimuth_));
  }
}

// In summer and autumn dusk comes earlier every evening.  Where it passes over the
// local midnight, in any second of it, every evening keeps its dusk.
TEST_F(DaySearchTest, NoDuskIsLostAtMidnight) {
  for (double longitude = -62; longitude < -55; longitude += 0.05) {
    ephemeris::PtSun sun(PtPosition(38.5, longitude));
    std::vector<double> dusks;
    for (int day = 1; day < 40; ++day) {
      const SunEvent event =
          sunEventOfDay(sun, LocalDay(dateIn("GMT", 2003, 8, 10 + day)), gmtCachedCalendar());
      for (const double dusk : {event.astronomicalTwilight.mjdEnd(),
                                event.astronomicalTwilight2.value_or(TwilightEvent()).mjdEnd()}) {
        if (drawEventAtMjd(dusk)) dusks.push_back(dusk);
      }
    }
    for (std::size_t i = 1; i < dusks.size(); ++i) {
      EXPECT_NEAR(dusks[i] - dusks[i - 1], 0.9985, 0.001) << longitude;
    }
  }
}

}  // namespace
}  // namespace zenivo::testing
