// What do positions and a day's searches cost, and what does libnova take for the
// same questions?  libnova sums the whole VSOP87 and ELP2000-82B, and its rise and
// set search starts afresh for every kind.

#include <benchmark/benchmark.h>
#include <libnova/lunar.h>
#include <libnova/rise_set.h>
#include <libnova/solar.h>
#include <libnova/transform.h>

#include <cmath>
#include <random>
#include <vector>

#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "engine/Twilight.h"
#include "time/Mjd.h"

namespace zenivo::ephemeris {
namespace {

constexpr double kDeltaT = 70.0 / 86400.0;

/// Where and when people photograph: populated latitudes, this half century.
struct Case {
  double latitude, longitude, mjdAt0;
};

const std::vector<Case>& cases() {
  static const std::vector<Case> list = [] {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> latitude(-60, 60), longitude(-180, 180),
        day(51544, 69807);
    std::vector<Case> c(1024);
    for (Case& one : c) one = {latitude(random), longitude(random), std::floor(day(random))};
    return c;
  }();
  return list;
}

const Case& nextCase() {
  static std::size_t i = 0;
  return cases()[i++ % cases().size()];
}

template <class Body, bool kFull>
void Position(benchmark::State& state) {
  Body body(PtPosition(47, 11, 500, 0));
  for (auto _ : state) {
    body.computePosition(kFull, nextCase().mjdAt0, kDeltaT);
    benchmark::DoNotOptimize(body.horizontal().azimuth_);
  }
}
BENCHMARK(Position<PtSun, true>);
BENCHMARK(Position<PtSun, false>);
BENCHMARK(Position<PtMoon, true>);
BENCHMARK(Position<PtMoon, false>);

/// Sun and Moon at one moment, which share its frame.
void BothPositions(benchmark::State& state) {
  PtSun sun(PtPosition(47, 11, 500, 0));
  PtMoon moon(PtPosition(47, 11, 500, 0));
  for (auto _ : state) {
    const Frame frame = frameAt(nextCase().mjdAt0, kDeltaT);
    sun.computePosition(true, frame);
    moon.computePosition(true, frame);
    benchmark::DoNotOptimize(sun.horizontal().azimuth_ + moon.horizontal().azimuth_);
  }
}
BENCHMARK(BothPositions)->Name("Position Sun and Moon");

template <auto kEquatorial>
void LibnovaPosition(benchmark::State& state) {
  ln_lnlat_posn observer{11, 47};
  for (auto _ : state) {
    const double jd = nextCase().mjdAt0 + kJdMinusMjd;
    ln_equ_posn place;
    ln_hrz_posn sky;
    kEquatorial(jd, &place);
    ln_get_hrz_from_equ(&place, &observer, jd, &sky);
    benchmark::DoNotOptimize(sky.az);
  }
}
void moonPlace(double jd, ln_equ_posn* place) {
  ln_get_lunar_equ_coords_prec(jd, place, 0);
}
BENCHMARK(LibnovaPosition<ln_get_solar_equ_coords>)->Name("libnova Position Sun");
BENCHMARK(LibnovaPosition<moonPlace>)->Name("libnova Position Moon");

template <class Body>
void OneSearch(benchmark::State& state) {
  Body body;
  for (auto _ : state) {
    const Case& c = nextCase();
    body.setPosition(PtPosition(c.latitude, c.longitude));
    benchmark::DoNotOptimize(
        body.riseSet(static_cast<EventKind>(state.range(0)), c.mjdAt0, kDeltaT));
  }
}
BENCHMARK(OneSearch<PtSun>)->Name("riseSet Sun")->ArgName("kind")->DenseRange(0, 5);
BENCHMARK(OneSearch<PtMoon>)->Name("riseSet Moon")->ArgName("kind")->Arg(3);

template <class Body>
void Transit(benchmark::State& state) {
  Body body;
  for (auto _ : state) {
    const Case& c = nextCase();
    body.setPosition(PtPosition(c.latitude, c.longitude));
    benchmark::DoNotOptimize(body.transit(c.mjdAt0, kDeltaT));
  }
}
BENCHMARK(Transit<PtSun>);
BENCHMARK(Transit<PtMoon>);

/// What the planner asks of a new day: all searches for both bodies, and the azimuths
/// at rise and set.
void Day(benchmark::State& state) {
  PtSun sun;
  PtMoon moon;
  const Calendar calendar{TimeZone()};
  const auto azimuths = [](PtPlanet& body, const RiseSet& found) {
    for (const double mjd : {found.rise, found.set}) {
      if (drawEventAtMjd(mjd)) body.computePosition(true, mjd, kDeltaT);
    }
    benchmark::DoNotOptimize(body.horizontal().azimuth_);
  };
  for (auto _ : state) {
    const Case& c = nextCase();
    const PtPosition place(c.latitude, c.longitude);
    sun.setPosition(place);
    moon.setPosition(place);
    benchmark::DoNotOptimize(calculateTwilightsForMjd(c.mjdAt0, kDeltaT, 1, sun, calendar));
    azimuths(sun, sun.riseSet(EventKind::riseSet, c.mjdAt0, kDeltaT));
    benchmark::DoNotOptimize(sun.transit(c.mjdAt0, kDeltaT));
    azimuths(moon, moon.riseSet(EventKind::riseSet, c.mjdAt0, kDeltaT));
    benchmark::DoNotOptimize(moon.transit(c.mjdAt0, kDeltaT));
  }
}
BENCHMARK(Day)->Unit(benchmark::kMicrosecond);

/// The same by libnova: each search also gives the transit.
void LibnovaDay(benchmark::State& state) {
  for (auto _ : state) {
    const Case& c = nextCase();
    ln_lnlat_posn place{c.longitude, c.latitude};
    const double jd = c.mjdAt0 + kJdMinusMjd;
    ln_rst_time rst;
    for (const double horizon : {-6.0, -12.0, -18.0, -0.8333, 6.0, -4.0}) {
      ln_get_solar_rst_horizon(jd, &place, horizon, &rst);
      benchmark::DoNotOptimize(rst.rise);
    }
    ln_get_lunar_rst(jd, &place, &rst);
    benchmark::DoNotOptimize(rst.rise);
  }
}
BENCHMARK(LibnovaDay)->Name("libnova Day")->Unit(benchmark::kMicrosecond);

template <auto kSearch>
void LibnovaSearch(benchmark::State& state) {
  for (auto _ : state) {
    const Case& c = nextCase();
    ln_lnlat_posn place{c.longitude, c.latitude};
    ln_rst_time rst;
    kSearch(c.mjdAt0 + kJdMinusMjd, &place, &rst);
    benchmark::DoNotOptimize(rst.rise);
  }
}
BENCHMARK(LibnovaSearch<ln_get_solar_rst>)->Name("libnova riseSet and transit Sun");
BENCHMARK(LibnovaSearch<ln_get_lunar_rst>)->Name("libnova riseSet and transit Moon");

}  // namespace
}  // namespace zenivo::ephemeris
