// Settings, ladders and a small camera database for the tests of the calculators.

#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "calculators/camera/ApertureManager.h"
#include "calculators/camera/CameraStore.h"
#include "calculators/camera/DistanceUnits.h"
#include "foundation/Error.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

inline constexpr SensorSize kFullFrame{36, 24};
inline constexpr SensorSize kApsC{22.3F, 14.9F};

/// Cameras in memory; saving can be made to fail.
class MemoryCameraStore : public CameraStore {
 public:
  std::optional<CameraRecord> loadCameraWithId(std::int64_t cameraId) const override {
    const auto found = std::ranges::find(presets, cameraId, &CameraRecord::cameraId);
    return found == presets.end() ? std::nullopt : std::optional(*found);
  }

  std::optional<CameraRecord> loadDefaultCameraWhenSettingsNull() const override {
    return presets.empty() ? std::nullopt : std::optional(presets.front());
  }

  std::vector<CustomCameraRecord> loadCustomCameras() const override {
    auto sorted = custom;
    std::ranges::sort(sorted, {}, &CustomCameraRecord::model);
    return sorted;
  }

  std::optional<CustomCameraRecord> loadCameraWithModel(std::string_view model) const override {
    const auto found = std::ranges::find(custom, model, &CustomCameraRecord::model);
    return found == custom.end() ? std::nullopt : std::optional(*found);
  }

  bool existsCameraWithModel(const CustomCameraRecord& camera) const override {
    return std::ranges::any_of(custom, [&](const CustomCameraRecord& other) {
      return other.model == camera.model && other.uniqueIdentifier != camera.uniqueIdentifier;
    });
  }

  bool saveCustomCamera(const CustomCameraRecord& camera, Error* error) override {
    if (isBroken) return report(error);
    const auto found =
        std::ranges::find(custom, camera.uniqueIdentifier, &CustomCameraRecord::uniqueIdentifier);
    if (!camera.uniqueIdentifier.empty() && found != custom.end()) {
      *found = camera;
    } else {
      custom.push_back(camera);
      custom.back().uniqueIdentifier = "ID-" + std::to_string(++made_);
    }
    return true;
  }

  bool deleteCustomCamera(std::string_view uniqueIdentifier, Error* error) override {
    if (isBroken) return report(error);
    std::erase_if(custom,
                  [&](const auto& camera) { return camera.uniqueIdentifier == uniqueIdentifier; });
    return true;
  }

  std::vector<CameraRecord> presets;
  std::vector<CustomCameraRecord> custom;
  bool isBroken = false;

 private:
  static bool report(Error* error) { return fail(error, {.description = "disk full"}); }

  int made_ = 0;
};

/// Presets: 1 full frame, 2 APS-C, 3 film, 4 with a fixed lens of 35 mm f/2, 5 with a fixed
/// lens alone.
struct CalculatorFixture {
  CalculatorFixture() {
    cameras.presets = {{1, "Alpha", "FF", kFullFrame, 45.7F, {}, {}, false},
                       {2, "Beta", "C", kApsC, 24, {}, {}, false},
                       {3, "Gamma", "Film", kFullFrame, {}, {}, {}, true},
                       {4, "Delta", "Fix", kFullFrame, 42.4F, 35.0F, 2.0F, false},
                       {5, "Delta", "Lens", kApsC, 16.2F, 28.0F, 0.0F, false}};
  }

  UserDefaults defaults;
  ApertureManager apertures{defaults};
  DistanceUnitsManager units{defaults};
  MemoryCameraStore cameras;
};

}  // namespace zenivo
