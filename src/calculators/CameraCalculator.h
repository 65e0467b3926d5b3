// What the calculators work with, and what those that look through a camera have in common.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/ApertureManager.h"
#include "calculators/camera/CameraStore.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/DistanceUnits.h"
#include "calculators/camera/LensInput.h"
#include "calculators/models/Refusal.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// Settings, ladders, units and cameras; all must outlive the calculators.
struct CalculatorEnvironment {
  UserDefaults& defaults;
  ApertureManager& apertures;
  DistanceUnitsManager& units;
  CameraStore& cameras;

  CameraValuesFormatter formatter() const { return CameraValuesFormatter(units.currentUnits()); }
};

/// A calculator for the current camera.
class CameraCalculator {
 public:
  /// The camera that was current when the calculator was last loaded; nullopt when the
  /// chosen one has gone.
  const std::optional<AbstractCamera>& camera() const { return camera_; }

 protected:
  explicit CameraCalculator(const CalculatorEnvironment& environment) : environment_(environment) {}
  ~CameraCalculator() = default;

  const CalculatorEnvironment& environment() const { return environment_; }
  UserDefaults& defaults() const { return environment_.defaults; }

  void loadCamera();

  bool isFocalLengthFixed() const { return camera_ && camera_->isFixedFocalLength(); }
  bool isApertureFixed() const { return camera_ && camera_->isFixedAperture(); }

  /// The lens as the settings keep it under three keys, or the camera's fixed one
  /// without teleconverters.
  LensInput loadLens(const LensKeys& keys) const;
  /// The stop nearest to the setting, or to the camera's fixed aperture.
  Aperture loadAperture(std::string_view key) const;
  /// The whole ladder, or only the stop nearest to a fixed aperture.
  std::vector<Aperture> stopsOfCamera() const;

 private:
  CalculatorEnvironment environment_;
  std::optional<AbstractCamera> camera_;
};

}  // namespace zenivo
