// What does a photographer wait for who asks for dates?  A year of an azimuth, and
// five years of an azimuth and an elevation, beside the floor: evaluating the body
// once a day with the full series.

#include <benchmark/benchmark.h>

#include "find/DirectionSearch.h"
#include "find/PassageSearch.h"

namespace zenivo {
namespace {

constexpr double kDay = 61041.0;
constexpr double kDeltaT = 69.0 / 86400.0;
constexpr int kYear = 365;

FindBody bodyOf(const benchmark::State& state) {
  return state.range(0) == 0 ? FindBody::sun : FindBody::moon;
}

PtPosition placeOf(const benchmark::State& state) {
  return {static_cast<double>(state.range(1)), 2.2945};
}

void BM_OnePositionADay(benchmark::State& state) {
  FindBodies bodies(bodyOf(state), placeOf(state));
  for (auto _ : state) {
    for (int i = 0; i < kYear; ++i) bodies.evaluate(kDay + i, kDeltaT);
    benchmark::DoNotOptimize(bodies.body().horizontal());
  }
}
BENCHMARK(BM_OnePositionADay)->ArgsProduct({{0, 1}, {48}})->Unit(benchmark::kMicrosecond);

void BM_AzimuthOverOneYear(benchmark::State& state) {
  for (auto _ : state) {
    AzimuthSearch search(bodyOf(state), placeOf(state), 235.0F, kDeltaT);
    for (int i = 0; i < kYear; ++i) benchmark::DoNotOptimize(search.onDay(kDay + i));
  }
}
BENCHMARK(BM_AzimuthOverOneYear)->ArgsProduct({{0, 1}, {48, 10}})->Unit(benchmark::kMicrosecond);

void BM_AllPassagesOverOneYear(benchmark::State& state) {
  for (auto _ : state) {
    PassageSearch search(bodyOf(state), placeOf(state), 235.0F);
    for (int i = 0; i < kYear; ++i) benchmark::DoNotOptimize(search.onDay(kDay + i));
  }
}
BENCHMARK(BM_AllPassagesOverOneYear)
    ->ArgsProduct({{0, 1}, {48, 10}})
    ->Unit(benchmark::kMicrosecond);

void BM_AzimuthAndElevationOverFiveYears(benchmark::State& state) {
  for (auto _ : state) {
    AzimuthElevationSearch search(bodyOf(state), placeOf(state), 235.0F, 2.0F, 20.0F, 1.0F,
                                  kDeltaT);
    for (int i = 0; i < 5 * kYear; ++i) benchmark::DoNotOptimize(search.onDay(kDay + i));
  }
}
BENCHMARK(BM_AzimuthAndElevationOverFiveYears)
    ->ArgsProduct({{0, 1}, {48, 10}})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zenivo
