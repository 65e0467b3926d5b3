// What does a place cost before the sky is asked?  The zone of a point, the name near it,
// a place by its name, and each with opening its file, as one question in a process does
// it; beside the floor: reading the same files whole.

#include <benchmark/benchmark.h>

#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "input/Gazetteer.h"
#include "input/PlaceFinder.h"
#include "input/ZoneMap.h"

namespace zenivo {
namespace {

/// Places of the gazetteer, as land as people are on it.
std::vector<Coordinate> somePlaces() {
  const Gazetteer gazetteer;
  std::mt19937 random(1);
  std::uniform_int_distribution<std::uint32_t> index(0, gazetteer.size() - 1);
  std::vector<Coordinate> places(1024);
  for (Coordinate& place : places) place = gazetteer.place(index(random)).coordinate;
  return places;
}

void BM_ZoneOfAPoint(benchmark::State& state) {
  const ZoneMap map;
  const std::vector<Coordinate> places = somePlaces();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(map.at(places[i++ % places.size()]));
}
BENCHMARK(BM_ZoneOfAPoint);

void BM_NearestPlace(benchmark::State& state) {
  const Gazetteer gazetteer;
  const std::vector<Coordinate> places = somePlaces();
  std::size_t i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(gazetteer.nearest(places[i++ % 1024], 50));
}
BENCHMARK(BM_NearestPlace)->Unit(benchmark::kMicrosecond);

void BM_PlaceByName(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(findPlace(Gazetteer(), "Paris"));
}
BENCHMARK(BM_PlaceByName)->Unit(benchmark::kMicrosecond);

void BM_OpenTheZones(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ZoneMap().at({48.8584, 2.2945}));
}
BENCHMARK(BM_OpenTheZones)->Unit(benchmark::kMicrosecond);

void BM_ReadBothFilesWhole(benchmark::State& state) {
  for (auto _ : state) {
    for (const char* name : {"places.index", "zones.bin"}) {
      std::ifstream file(resourcePath(name), std::ios::binary);
      benchmark::DoNotOptimize(
          std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
    }
  }
}
BENCHMARK(BM_ReadBothFilesWhole)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zenivo
