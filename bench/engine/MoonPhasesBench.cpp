// What do the phases of a month cost, the apsides and the supermoons of a year?

#include <benchmark/benchmark.h>

#include "engine/MoonApsides.h"
#include "engine/MoonDistancesYear.h"
#include "engine/MoonPhases.h"
#include "time/DateEphemeris.h"

namespace zenivo {
namespace {

void BM_PhasesOfAMonth(benchmark::State& state) {
  PtDateTime start{2026, 1, 1, 0, 0.0};
  for (auto _ : state) {
    start.month = start.month % 12 + 1;
    benchmark::DoNotOptimize(phasesFromDate(start));
  }
}
BENCHMARK(BM_PhasesOfAMonth);

void BM_ApsidesOfAYear(benchmark::State& state) {
  std::int64_t year = 2000;
  for (auto _ : state) {
    year = 2000 + (year + 1) % 100;
    benchmark::DoNotOptimize(apogeePerigeesForYear(year, gmtCachedCalendar()));
  }
}
BENCHMARK(BM_ApsidesOfAYear)->Unit(benchmark::kMicrosecond);

void BM_MoonDistancesOfAYear(benchmark::State& state) {
  MoonDistancesYear year(PtPosition(46.5, 8.0), 2000, gmtCachedCalendar());
  for (auto _ : state) {
    year.nextYear();
    benchmark::DoNotOptimize(year.supermoons());
  }
}
BENCHMARK(BM_MoonDistancesOfAYear)->Iterations(200)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zenivo
