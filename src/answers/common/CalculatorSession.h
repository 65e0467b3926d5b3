// The calculators for one answer.

#pragma once

#include "answers/common/Home.h"
#include "answers/common/Stores.h"
#include "answers/common/UserSettings.h"
#include "calculators/CameraCalculator.h"
#include "data/cameras/DatabaseCameraStore.h"

namespace zenivo {

/// Settings, units, apertures and cameras as the user has them.  Calculators that stand on
/// the environment store what they are given in a copy of the settings, which is lost with
/// the session unless it is saved.  The stores are opened by the first camera that is looked
/// up, and one that cannot be opened throws std::runtime_error then.
class CalculatorSession {
 public:
  /// Throws std::runtime_error when the first values of the settings cannot be read.
  explicit CalculatorSession(Home& home)
      : settings_(home.zenivoUserDefaults()), stores_(home.database()) {}

  CalculatorEnvironment environment() { return {settings(), apertures_, units_, cameras_}; }

  UserDefaults& settings() { return settings_.copy(); }
  DatabaseCameraStore& cameras() { return cameras_; }

  /// Keeps the changed settings in the user's folder.  Throws std::runtime_error on failure.
  void save() { settings_.save(); }

 private:
  UserSettings settings_;
  Stores stores_;
  DatabaseCameraStore cameras_{stores_.database()};
  ApertureManager apertures_{settings_.copy()};
  DistanceUnitsManager units_{settings_.copy()};
};

}  // namespace zenivo
