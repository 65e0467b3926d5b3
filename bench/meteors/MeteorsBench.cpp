// What does a year's table of real peaks cost: on one core, over all, and without the
// skies that showers share?  And what does a screen wait for when it opens?

#include <benchmark/benchmark.h>

#include <algorithm>
#include <thread>

#include "meteors/MeteorShowerManager.h"
#include "meteors/MeteorSky.h"
#include "time/DateEphemeris.h"
#include "time/PtDateTime.h"

namespace zenivo {
namespace {

const ZVLocation kTeide{{28.27, -16.64}, 2390, 5};

std::vector<RealPeakTask> tasksOfYear(std::int64_t year) {
  MeteorShowers catalogue(kTeide);
  catalogue.calculateMeteorShowersActivitiesWithYear(year, gmtCachedCalendar());
  std::vector<RealPeakTask> tasks;
  for (const auto& shower : catalogue.showers()) {
    tasks.push_back({.shower = *shower, .periods = shower->activityPeriods});
  }
  return tasks;
}

/// Both periods of all 40 showers, as a year's calendar asks for them.
void BM_PeaksOfAYear(benchmark::State& state) {
  const std::vector<RealPeakTask> tasks = tasksOfYear(2026);
  for (auto _ : state) {
    PeakSamples samples(kTeide, gmtCachedCalendar());
    calculateRealPeaks(tasks, samples, static_cast<int>(state.range(0)),
                       [](const RealPeakTask&) { return true; });
  }
}
BENCHMARK(BM_PeaksOfAYear)
    ->ArgName("threads")
    ->Arg(1)
    ->Arg(std::max(std::thread::hardware_concurrency(), 2U))
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

/// The same, each shower by itself.
void BM_PeaksOfAYearNothingShared(benchmark::State& state) {
  const std::vector<RealPeakTask> tasks = tasksOfYear(2026);
  for (auto _ : state) {
    for (const RealPeakTask& task : tasks) {
      PeakSamples samples(kTeide, gmtCachedCalendar());
      calculateRealPeaks({task}, samples, 1, [](const RealPeakTask&) { return true; });
    }
  }
}
BENCHMARK(BM_PeaksOfAYearNothingShared)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

/// The sky of one moment, and its floor: the two bodies alone.
void BM_Sky(benchmark::State& state) {
  ephemeris::PtSun sun(kTeide.getPtPosition());
  ephemeris::PtMoon moon(kTeide.getPtPosition());
  const MeteorSkyModel model(kTeide, 2026, 8);
  double mjd = 61264.0;
  for (auto _ : state) benchmark::DoNotOptimize(model.skyAt(mjd += 1e-3, 0.0008, sun, moon));
}
BENCHMARK(BM_Sky)->Unit(benchmark::kMicrosecond);

void BM_SunAndMoon(benchmark::State& state) {
  ephemeris::PtSun sun(kTeide.getPtPosition());
  ephemeris::PtMoon moon(kTeide.getPtPosition());
  double mjd = 61264.0;
  for (auto _ : state) {
    mjd += 1e-3;
    sun.computePosition(true, mjd, 0.0008);
    moon.computePosition(true, mjd, 0.0008);
    benchmark::DoNotOptimize(moon.horizontal());
  }
}
BENCHMARK(BM_SunAndMoon)->Unit(benchmark::kMicrosecond);

/// A live screen in the Perseids' week: three days, tonight, the peaks of what is active.
void BM_OpenLiveScreen(benchmark::State& state) {
  const LocationInfoData data{dateWithPtDateTime({2026, 8, 10, 20, 0}), kTeide, TimeZone()};
  for (auto _ : state) {
    MeteorShowerManager manager(data, nullptr);
    benchmark::DoNotOptimize(manager.maxPeakInfo());
  }
}
BENCHMARK(BM_OpenLiveScreen)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zenivo
