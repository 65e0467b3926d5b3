// Rise, set, twilights and transit against the sky: libnova's and the body's own.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <memory>
#include <random>

#include "LibnovaPeer.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "engine/QuadraticRoots.h"
#include "time/PtDateTime.h"

namespace zenivo::ephemeris {
namespace {

constexpr double kSecond = 1.0 / 86400.0;
constexpr double kDeltaT = 65.0 * kSecond;
constexpr EventKind kKinds[] = {EventKind::civil,   EventKind::nautical,   EventKind::astronomical,
                                EventKind::riseSet, EventKind::goldenHour, EventKind::blueHour};

double altitudeOf(EventKind kind) {
  constexpr double kAltitudes[] = {-6, -12, -18, 0, 6, -4};
  return kAltitudes[static_cast<std::size_t>(kind)];
}

/// Random places and days; the seed is fixed, so that a failure repeats.
class Cases {
 public:
  Cases(double maximumLatitude, int firstYear, int lastYear)
      : latitude_(-maximumLatitude, maximumLatitude),
        day_(getMjd({firstYear, 1, 1, 0, 0}), getMjd({lastYear, 1, 1, 0, 0})) {}

  PtPosition place() { return {latitude_(random_), longitude_(random_)}; }
  double midnight() { return std::floor(day_(random_)) + std::round(longitude_(random_)) / 360.0; }

 private:
  std::mt19937_64 random_{20240408};
  std::uniform_real_distribution<double> latitude_;
  std::uniform_real_distribution<double> longitude_{-180.0, 180.0};
  std::uniform_real_distribution<double> day_;
};

/// Seconds by which a crossing found misses the one of `height`, a function of the
/// moment that climbs (or sinks) through 0 there.  Grazes, where the height changes by
/// less than 3 degrees an hour, are left out: 0.
template <class Height>
double missOfOne(double mjd, bool climbs, const Height& height) {
  if (!drawEventAtMjd(mjd)) return 0.0;
  const double before = height(mjd - 60 * kSecond), after = height(mjd + 60 * kSecond);
  const double slope = (after - before) / 120.0;  // degrees a second
  if (std::abs(slope) < 3.0 / 3600.0) return 0.0;
  EXPECT_EQ(slope > 0.0, climbs) << mjd;
  return std::abs((after + before) / 2.0 / slope);
}

template <class Height>
double missInSeconds(const RiseSet& found, const Height& height) {
  return std::max(missOfOne(found.rise, true, height), missOfOne(found.set, false, height));
}

TEST(RiseSet, SunWithinTheErrorOfLibnova) {
  Cases cases(60.0, 1950, 2050);
  double worst = 0;
  for (int i = 0; i < 120; ++i) {
    const PtPosition place = cases.place();
    const double mjdAt0 = cases.midnight();
    PtSun sun(place);
    for (const EventKind kind : kKinds) {
      const auto height = [&](double mjd) {
        const libnova::Sky sky = libnova::sunSky(mjd, kDeltaT, place.latitude(), place.longitude());
        return kind == EventKind::riseSet ? libnova::sunOverHorizon(sky)
                                          : sky.altitude - altitudeOf(kind);
      };
      const RiseSet found = sun.riseSet(kind, mjdAt0, kDeltaT);
      const double miss = missInSeconds(found, height);
      EXPECT_LT(miss, 25.0) << place.latitude() << " " << mjdAt0;
      worst = std::max(worst, miss);
    }
  }
  std::cout << "worst miss: sunrise, sunset and twilights " << worst
            << " s against libnova, to 60 degrees of latitude, 1950-2050\n";
}

TEST(RiseSet, MoonWithinTheErrorOfLibnova) {
  Cases cases(60.0, 1950, 2050);
  double worst = 0;
  for (int i = 0; i < 40; ++i) {
    const PtPosition place = cases.place();
    const RiseSet found = PtMoon(place).riseSet(EventKind::riseSet, cases.midnight(), kDeltaT);
    const auto height = [&](double mjd) {
      return libnova::moonOverHorizon(
          libnova::moonSky(mjd, kDeltaT, place.latitude(), place.longitude()));
    };
    const double miss = missInSeconds(found, height);
    EXPECT_LT(miss, 25.0) << place.latitude() << " " << found.rise;
    worst = std::max(worst, miss);
  }
  std::cout << "worst miss: moonrise and moonset " << worst
            << " s against libnova, to 60 degrees of latitude, 1950-2050\n";
}

TEST(Transit, WithinSecondsOfLibnova) {
  Cases cases(85.0, 1950, 2050);
  double worstSun = 0, worstMoon = 0;
  for (int i = 0; i < 100; ++i) {
    const PtPosition place = cases.place();
    const double mjdAt0 = cases.midnight();
    const auto miss = [&](double mjd, auto&& sky) {
      if (!drawEventAtMjd(mjd)) return 0.0;
      return std::abs(sky(mjd, kDeltaT, place.latitude(), place.longitude()).hourAngle) / kTwoPi *
             86400.0;
    };
    worstSun = std::max(worstSun, miss(PtSun(place).transit(mjdAt0, kDeltaT), libnova::sunSky));
    worstMoon = std::max(worstMoon, miss(PtMoon(place).transit(mjdAt0, kDeltaT), libnova::moonSky));
  }
  std::cout << "worst miss: transit of the Sun " << worstSun << " s, of the Moon " << worstMoon
            << " s against libnova, 1950-2050\n";
  EXPECT_LT(worstSun, 2.0);
  EXPECT_LT(worstMoon, 160.0);
}

// A body that has answered for other days, places and kinds gives the same bits as a new
// one, and a search that leaves hours out the same as one that samples them all.
template <class Body>
void expectSavingsChangeNothing() {
  constexpr double kNoHourOut = 24.0;  // radians a day: nothing is sure
  Cases cases(90.0, 1900, 2100);
  std::mt19937_64 random(3);
  Body body;
  for (int i = 0; i < 60; ++i) {
    const PtPosition place = cases.place();
    body.setPosition(place);
    const double mjdAt0 = cases.midnight();
    for (int query = 0; query < 12; ++query) {
      const EventKind kind = kKinds[random() % 6];
      const double start = mjdAt0 + static_cast<double>(random() % 4) * 0.5;
      Body fresh(place);
      const double target =
          kind == EventKind::riseSet
              ? fresh.sinRiseAltitude(false, 0.0,
                                      fresh.equatorialPosition(true, start, kDeltaT).r())
              : std::sin(altitudeOf(kind) * kDegree);
      DaySamples samples;
      samples.start(start, kDeltaT);
      const auto evaluate = [&](int hour) {
        return DaySample{.sinAltitude = fresh.sinAltitude(start, kDeltaT, hour)};
      };
      EXPECT_EQ(body.riseSet(kind, start, kDeltaT),
                searchCrossings(samples, evaluate, target, kNoHourOut));
      EXPECT_EQ(body.transit(start, kDeltaT), Body(place).transit(start, kDeltaT));
      // A query in between, and the same day with another deltaT, must not mix in.
      body.computePosition(false, start, kDeltaT);
      body.riseSet(kind, start, kDeltaT + kSecond);
    }
  }
}

TEST(RiseSet, SavingsChangeNothing) {
  expectSavingsChangeNothing<PtSun>();
  expectSavingsChangeNothing<PtMoon>();
}

// From pole to pole: a crossing is one, and a sentinel tells the truth about every
// ten minutes of the day (but for grazes, a twentieth of a degree).
TEST(RiseSet, CrossingsAndSentinelsHoldEverywhere) {
  Cases cases(90.0, 1800, 2200);
  for (int i = 0; i < 250; ++i) {
    PtPosition place = cases.place();
    if (i % 10 == 0) place = {i % 20 == 0 ? 90.0 : -90.0, 180.0};
    const double mjdAt0 = cases.midnight();
    std::unique_ptr<PtPlanet> body;
    if (i % 2 == 0) body = std::make_unique<PtSun>(place);
    if (i % 2 == 1) body = std::make_unique<PtMoon>(place);
    const EventKind kind = kKinds[i % 6];
    const double distance = body->equatorialPosition(true, mjdAt0, kDeltaT).r();
    const double target = kind == EventKind::riseSet
                              ? std::asin(body->sinRiseAltitude(false, 0.0, distance)) / kDegree
                              : altitudeOf(kind);
    const auto height = [&](double mjd) {
      return std::asin(body->sinAltitude(mjd, kDeltaT, 0.0)) / kDegree - target;
    };
    bool climbs = false, sinks = false, above = false, below = false;
    for (double side = 0, t = mjdAt0; t < mjdAt0 + 1.0; t += 1.0 / 144.0) {
      const double now = height(t);
      if (std::abs(now) < 0.05) continue;
      climbs |= side < 0 && now > 0;
      sinks |= side > 0 && now < 0;
      (now > 0 ? above : below) = true;
      side = now;
    }
    const RiseSet found = body->riseSet(kind, mjdAt0, kDeltaT);
    EXPECT_TRUE(drawEventAtMjd(found.rise) || !climbs) << place.latitude() << " " << mjdAt0;
    EXPECT_TRUE(drawEventAtMjd(found.set) || !sinks) << place.latitude() << " " << mjdAt0;
    EXPECT_FALSE(found.rise == kAlwaysAbove && below) << place.latitude() << " " << mjdAt0;
    EXPECT_FALSE(found.rise == kAlwaysBelow && above) << place.latitude() << " " << mjdAt0;
    EXPECT_LT(missInSeconds(found, height), 45.0) << place.latitude();
  }
}

struct Counts {
  int rises = 0, sets = 0;
  bool operator==(const Counts&) const = default;
};

template <class Body>
Counts countIn(int days, double mjd, const PtPosition& place) {
  Body body(place);
  Counts counts;
  for (int day = 0; day < days; ++day) {
    const RiseSet found = body.riseSet(EventKind::riseSet, mjd + day, kDeltaT);
    counts.rises += drawEventAtMjd(found.rise);
    counts.sets += drawEventAtMjd(found.set);
  }
  return counts;
}

// At a pole the Sun rises and sets once a year.  The lunar day is 50 minutes longer than
// the solar: once a month a day goes without a rise, once without a set.
TEST(RiseSet, DaysWithoutOne) {
  EXPECT_EQ(countIn<PtSun>(365, getMjd({2026, 1, 1, 0, 0}), {90, 0}), (Counts{1, 1}));
  EXPECT_EQ(countIn<PtSun>(365, getMjd({2026, 1, 1, 0, 0}), {-90, 0}), (Counts{1, 1}));
  EXPECT_EQ(countIn<PtMoon>(30, getMjd({2026, 4, 1, 0, 0}), {47, 11}), (Counts{29, 29}));
}

TEST(RiseSet, HeightAboveTheHorizonAddsTheDip) {
  const PtSun low(PtPosition(47, 11)), high(PtPosition(47, 11, 0, 100)), under({47, 11, 0, -5});
  EXPECT_NEAR(low.horizonAltitude(0) - high.horizonAltitude(0), 0.35333, 1e-5);
  EXPECT_EQ(under.horizonAltitude(0), low.horizonAltitude(0));
  // Where almanacs put the Sun's centre at rise: 50 arcminutes below, and the Moon's
  // above by the parallax less refraction and semi-diameter.
  EXPECT_NEAR(std::asin(low.sinRiseAltitude(false, 0, 1.0)) / kDegree, -50.0 / 60.0, 0.02);
  const PtMoon moon;
  EXPECT_NEAR(std::asin(moon.sinRiseAltitude(false, 0, 384400)) / kDegree,
              (57.04 - 34.0 - 15.54) / 60.0, 0.02);
}

TEST(RiseSetDeathTest, AKindOutOfRangeAborts) {
  EXPECT_DEATH(PtSun().riseSet(static_cast<EventKind>(6), 60000.0, kDeltaT), "");
}

TEST(QuadraticRoots, OfKnownParabolas) {
  const auto through = [](auto&& f) { return quadraticRoots(f(-1.0), f(0.0), f(1.0)); };
  const QuadraticRoots two = through([](double x) { return (x + 0.5) * (x - 0.25); });
  EXPECT_EQ(two.count, 2);
  EXPECT_DOUBLE_EQ(two.root1, -0.5);
  EXPECT_DOUBLE_EQ(two.root2, 0.25);
  EXPECT_LT(two.extremeValue, 0.0);
  const QuadraticRoots second = through([](double x) { return (x + 3.0) * (x - 0.75); });
  EXPECT_EQ(second.count, 1);
  EXPECT_DOUBLE_EQ(second.root1, 0.75);
  const QuadraticRoots line = through([](double x) { return 2.0 * x - 1.0; });
  EXPECT_EQ(line.count, 1);
  EXPECT_DOUBLE_EQ(line.root1, 0.5);
  EXPECT_EQ(through([](double x) { return x * x + 0.1; }).count, 0);
  EXPECT_EQ(through([](double) { return 0.25; }).count, 0);
}

}  // namespace
}  // namespace zenivo::ephemeris
