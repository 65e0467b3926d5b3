// What does a whole depth of field table cost, all distances by all stops?  The floor is
// one multiplication and one division per cell; the texts are what a terminal adds.

#include <benchmark/benchmark.h>

#include "app/settings/RegisteredDefaults.h"
#include "calculators/DepthTables.h"

namespace zenivo {
namespace {

/// A catalogue of one full frame camera.
class OneCamera : public CameraStore {
 public:
  std::optional<CameraRecord> loadCameraWithId(std::int64_t) const override { return camera_; }
  std::optional<CameraRecord> loadDefaultCameraWhenSettingsNull() const override { return camera_; }
  std::vector<CustomCameraRecord> loadCustomCameras() const override { return {}; }
  std::optional<CustomCameraRecord> loadCameraWithModel(std::string_view) const override {
    return std::nullopt;
  }
  bool existsCameraWithModel(const CustomCameraRecord&) const override { return false; }
  bool saveCustomCamera(const CustomCameraRecord&, Error*) override { return false; }
  bool deleteCustomCamera(std::string_view, Error*) override { return false; }

 private:
  CameraRecord camera_{1, "Alpha", "FF", {36, 24}, 24.0F, {}, {}, false};
};

struct Desk {
  Desk() { registerBundledDefaults(defaults); }

  UserDefaults defaults;
  ApertureManager apertures{defaults};
  DistanceUnitsManager units{defaults};
  OneCamera cameras;
};

void BM_DofTable(benchmark::State& state) {
  Desk desk;
  DofTable table({desk.defaults, desk.apertures, desk.units, desk.cameras});
  table.load();
  for (auto _ : state) {
    for (std::size_t row = 1; row < table.rowCount(); ++row) {
      for (std::size_t column = 0; column < table.stops().size(); ++column) {
        benchmark::DoNotOptimize(table.cell(row, column));
      }
    }
  }
  state.counters["cells"] =
      static_cast<double>(table.subjectDistances().size() * table.stops().size());
}
BENCHMARK(BM_DofTable)->Unit(benchmark::kMicrosecond);

void BM_FloorOfDofTable(benchmark::State& state) {
  Desk desk;
  const auto distances = DofTable::standardSubjectDistances(UnitSystem::metric);
  for (auto _ : state) {
    for (const float distance : distances) {
      for (const Aperture& stop : desk.apertures.stops()) {
        benchmark::DoNotOptimize(distance * 0.0025 / (stop.value * 0.00003));
      }
    }
  }
}
BENCHMARK(BM_FloorOfDofTable)->Unit(benchmark::kMicrosecond);

void BM_TextsOfDofTable(benchmark::State& state) {
  Desk desk;
  DofTable table({desk.defaults, desk.apertures, desk.units, desk.cameras});
  table.load();
  const CameraValuesFormatter formatter(UnitSystem::metric);
  for (auto _ : state) {
    for (std::size_t row = 1; row < table.rowCount(); ++row) {
      for (std::size_t column = 0; column < table.stops().size(); ++column) {
        const DofTable::Cell cell = table.cell(row, column);
        benchmark::DoNotOptimize(formatter.formatDistance(cell.nearLimit, false));
        benchmark::DoNotOptimize(formatter.formatDistance(cell.farLimit, false));
      }
    }
  }
}
BENCHMARK(BM_TextsOfDofTable)->Unit(benchmark::kMillisecond);

/// The inverse with the heaviest equation.
void BM_FocalLengthForDepth(benchmark::State& state) {
  const Dof dof(0.05F, {8, 8}, 5, 1, 1, 0.03F);
  float depth = dof.depthOfField();
  for (auto _ : state) {
    benchmark::DoNotOptimize(depth);
    benchmark::DoNotOptimize(dof.calculateFocalLengthForDOF(depth));
  }
}
BENCHMARK(BM_FocalLengthForDepth);

}  // namespace
}  // namespace zenivo
