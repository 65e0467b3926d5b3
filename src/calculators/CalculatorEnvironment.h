// What every calculator works with.

#pragma once

#include "calculators/camera/ApertureManager.h"
#include "calculators/camera/CameraStore.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/DistanceUnitsManager.h"
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

}  // namespace zenivo
