// How long stars stay points, and how far they trail.

#pragma once

#include <optional>
#include <string>

#include "answers/calculators/CameraAndLens.h"
#include "answers/calculators/Readout.h"
#include "answers/common/CalculatorSession.h"
#include "calculators/models/NightModel.h"
#include "calculators/models/SpotStarsModel.h"

namespace zenivo {

/// Values that are missing stay as they are kept, here and below.
struct StarsQuestion {
  std::optional<std::string> camera;
  LensQuestion lens;
  std::optional<float> fstop;        ///< the nearest stop is taken
  std::optional<float> declination;  ///< degrees, -90 to 90
  std::optional<SpotStarsAccuracy> accuracy;
  bool explains = false;  ///< what the rules, the accuracy and the declination mean
};

struct StarsReport {
  Setup setup;
  SpotStarsModel model;
  bool explains = false;
};

/// What was given is kept in the session, here and below.  Throws InputError for what the
/// camera fixes and for a declination that is none.
StarsReport answer(const StarsQuestion& question, CalculatorSession& session);

Readout readout(const StarsReport& report);
Json json(const StarsReport& report);

/// The time or the angle; where both are given the angle holds.
struct TrailsQuestion {
  std::optional<float> exposureTime;  ///< seconds
  std::optional<float> angle;         ///< degrees: asks for the time in which stars sweep it
  std::optional<bool> isNorthHemisphere;
};

struct TrailsReport {
  UnitSystem units = UnitSystem::metric;
  NightModel model;
  bool isTimeSolved = false;
};

TrailsReport answer(const TrailsQuestion& question, CalculatorSession& session);

Readout readout(const TrailsReport& report);
Json json(const TrailsReport& report);

}  // namespace zenivo
