// What do the Moon's phases of a month and the apsides of a year cost?

#include <benchmark/benchmark.h>

#include "engine/MoonApsides.h"
#include "engine/MoonPhases.h"

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
    benchmark::DoNotOptimize(apogeePerigeesForYear(year));
  }
}
BENCHMARK(BM_ApsidesOfAYear)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zenivo
