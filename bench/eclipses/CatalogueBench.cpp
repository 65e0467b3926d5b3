// How long does the user wait for the eclipses of a place?  The list needs the
// type of each of the 1873 eclipses; beside it what it would cost to work out
// every contact and elevation, and what one eclipse costs when it is chosen.

#include <benchmark/benchmark.h>

#include "eclipses/Catalogue.h"
#include "eclipses/EclipseSelector.h"
#include "eclipses/MoonEclipse.h"
#include "eclipses/SunEclipse.h"

namespace zenivo {
namespace {

const PtPosition kPlaces[] = {
    {40.4168, -3.7038, 667}, {-33.8688, 151.2093}, {78.2232, 15.6267}, {0.3136, 32.5811, 1190}};

void BM_ListAtOnePlace(benchmark::State& state) {
  const auto& rows = catalogueRows();
  std::size_t i = 0;
  for (auto _ : state) {
    const PtPosition& place = kPlaces[i++ % std::size(kPlaces)];
    EclipseSelector list(rows, Coordinate{place.latitude, place.longitude});
    benchmark::DoNotOptimize(list.items().data());
  }
}
BENCHMARK(BM_ListAtOnePlace)->Unit(benchmark::kMillisecond);

void calculate(const PtPosition& place, const EclipseRow& row) {
  if (row.isSolarEclipse()) {
    const auto elements = elementVector(*row.solarEclipse, row.mjd);
    benchmark::DoNotOptimize(calculateSunEclipseTimes(place, elements));
  } else {
    const auto elements = elementVector(*row.lunarEclipse, row.mjd);
    benchmark::DoNotOptimize(calculateMoonEclipseTimes(place, elements));
  }
}

void BM_EveryContactAtOnePlace(benchmark::State& state) {
  const auto& rows = catalogueRows();
  std::size_t i = 0;
  for (auto _ : state) {
    const PtPosition& place = kPlaces[i++ % std::size(kPlaces)];
    for (const EclipseRow& row : rows) calculate(place, row);
  }
}
BENCHMARK(BM_EveryContactAtOnePlace)->Unit(benchmark::kMillisecond);

void BM_OneEclipse(benchmark::State& state, const char* name) {
  const EclipseRow& row = eclipseNamed(name);
  for (auto _ : state) calculate(PtPosition(42.3439, -3.6969), row);
}
BENCHMARK_CAPTURE(BM_OneEclipse, solar, "SE2026Aug12T")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_OneEclipse, lunar, "LE2025Mar14T")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zenivo
