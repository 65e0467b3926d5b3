// What does a user wait for when he turns the time wheel or moves the pin, and what
// does libnova take for the events of one day?

#include <benchmark/benchmark.h>
#include <libnova/lunar.h>
#include <libnova/rise_set.h>
#include <libnova/solar.h>

#include <cmath>
#include <random>
#include <vector>

#include "planner/DaySearch.h"
#include "planner/PlannerManager.h"
#include "time/DateEphemeris.h"
#include "time/Mjd.h"

namespace zenivo {
namespace {

/// Where and when people photograph: populated latitudes, this half century.
struct Case {
  Coordinate place;
  Date midnight;
};

const Case& nextCase() {
  static const std::vector<Case> cases = [] {
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> latitude(-60, 60), longitude(-180, 180),
        day(51544, 69807);
    std::vector<Case> list(1024);
    for (Case& one : list) {
      one = {{latitude(random), longitude(random)},
             dateFromModifiedJulianDay(std::floor(day(random)))};
    }
    return list;
  }();
  static std::size_t i = 0;
  return cases[i++ % cases.size()];
}

/// Rise, transit and set of both bodies, three twilights, blue and golden hour.
void PlannerDay(benchmark::State& state) {
  ephemeris::PtSun sun;
  ephemeris::PtMoon moon;
  for (auto _ : state) {
    const Case& c = nextCase();
    const PtPosition place(c.place.latitude, c.place.longitude);
    sun.setPosition(place);
    moon.setPosition(place);
    const LocalDay day(c.midnight);
    benchmark::DoNotOptimize(sunEventOfDay(sun, day, gmtCachedCalendar()));
    benchmark::DoNotOptimize(moonEventOfDay(moon, day, nullptr, gmtCachedCalendar()));
  }
}
BENCHMARK(PlannerDay);

void LibnovaDay(benchmark::State& state) {
  for (auto _ : state) {
    const Case& c = nextCase();
    ln_lnlat_posn place{c.place.longitude, c.place.latitude};
    const double jd = modifiedJulianDay(c.midnight) + kJdMinusMjd;
    ln_rst_time times;
    for (const double altitude : {-50.0 / 60, -6.0, -12.0, -18.0, -4.0, 6.0}) {
      benchmark::DoNotOptimize(ln_get_solar_rst_horizon(jd, &place, altitude, &times));
      benchmark::DoNotOptimize(times);
    }
    benchmark::DoNotOptimize(ln_get_lunar_rst(jd, &place, &times));
    benchmark::DoNotOptimize(times);
  }
}
BENCHMARK(LibnovaDay)->Name("libnova PlannerDay");

void YearOfDays(benchmark::State& state) {
  const PtPosition place(47, 11);
  ephemeris::PtSun sun(place);
  ephemeris::PtMoon moon(place);
  for (auto _ : state) {
    const LocalDay first(dateFromModifiedJulianDay(61041));
    for (int i = 0; i < 365; ++i) {
      const LocalDay day = first.dayAfter(i, cachedCalendar());
      benchmark::DoNotOptimize(sunEventOfDay(sun, day, gmtCachedCalendar()));
      benchmark::DoNotOptimize(moonEventOfDay(moon, day, nullptr, gmtCachedCalendar()));
    }
  }
}
BENCHMARK(YearOfDays)->Unit(benchmark::kMillisecond);

/// A session that is moved by some hours again and again.
void moveSession(benchmark::State& state, double hours) {
  UserDefaults defaults;
  PlannerManager session(defaults);
  session.setObserver(ZVObserver(Coordinate{47, 11}));
  session.setCurrentTimeZone(TimeZone::timeZoneWithName("Europe/Vienna").value());
  session.setCurrentDate(dateFromModifiedJulianDay(61041.5));
  double step = hours * 3600;
  for (auto _ : state) {
    session.setCurrentDate(session.currentDate().dateByAddingTimeInterval(step));
    if (hours < 12) step = -step;
  }
}

void MomentWithinTheDay(benchmark::State& state) {
  moveSession(state, 1);
}
BENCHMARK(MomentWithinTheDay);

void MomentAcrossMidnight(benchmark::State& state) {
  moveSession(state, 23.9);
}
BENCHMARK(MomentAcrossMidnight);

void MomentAnotherDay(benchmark::State& state) {
  moveSession(state, 24);
}
BENCHMARK(MomentAnotherDay);

void Place(benchmark::State& state) {
  UserDefaults defaults;
  PlannerManager session(defaults);
  session.setCurrentDate(dateFromModifiedJulianDay(61041.5));
  for (auto _ : state) session.setCurrentPosition(nextCase().place, false);
}
BENCHMARK(Place);

void DrawnPath(benchmark::State& state) {
  UserDefaults defaults;
  PlannerManager session(defaults);
  session.setCurrentPosition({47, 11}, false);
  session.mapSettings().sunLayer.mode = 1;
  for (auto _ : state) session.refreshBodyPaths();  // three days
}
BENCHMARK(DrawnPath);

}  // namespace
}  // namespace zenivo
