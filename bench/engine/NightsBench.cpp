// What does a night cost: its moonless hours, the galactic centre's window?  And the
// search for the centre's next night?

#include <benchmark/benchmark.h>

#include "engine/MilkyWay.h"
#include "engine/MoonlessHours.h"
#include "engine/PtMilkyWay.h"
#include "engine/PtMoon.h"
#include "engine/PtSun.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

const PtPosition kPlace(46.5, 8.0);

void BM_MoonlessHours(benchmark::State& state) {
  ephemeris::PtSun sun(kPlace);
  ephemeris::PtMoon moon(kPlace);
  Date date;
  for (auto _ : state) {
    date = dateByAddingNumberOfDays(date, 1, gmtCachedCalendar());
    benchmark::DoNotOptimize(moonlessHoursForNightAtDate(date, sun, moon, gmtCachedCalendar()));
  }
}
BENCHMARK(BM_MoonlessHours)->Iterations(2000)->Unit(benchmark::kMicrosecond);

void BM_GalacticCenterVisibility(benchmark::State& state) {
  ephemeris::PtSun sun(kPlace);
  ephemeris::PtMilkyWay milkyWay(kPlace);
  Date date;
  for (auto _ : state) {
    date = dateByAddingNumberOfDays(date, 1, gmtCachedCalendar());
    benchmark::DoNotOptimize(
        calculateGalacticCenterVisibility(milkyWay, sun, date, gmtCachedCalendar()));
  }
}
BENCHMARK(BM_GalacticCenterVisibility)->Iterations(2000)->Unit(benchmark::kMicrosecond);

void BM_NextDateOfGalacticCenter(benchmark::State& state) {
  // From November, when it is behind the Sun, to the end of January.
  ephemeris::PtSun sun(kPlace);
  ephemeris::PtMilkyWay milkyWay(kPlace);
  const Date date = dateWithPtDateTime({2025, 11, 20, 12, 0});
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        nextDateGalacticCenterIsVisible(milkyWay, sun, date, gmtCachedCalendar()));
  }
}
BENCHMARK(BM_NextDateOfGalacticCenter)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zenivo
