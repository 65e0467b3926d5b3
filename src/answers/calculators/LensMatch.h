// The lens with which a second camera sees what a first one does.

#pragma once

#include <optional>
#include <string>

#include "answers/calculators/CameraAndLens.h"
#include "answers/calculators/Readout.h"
#include "answers/common/CalculatorSession.h"
#include "calculators/models/EquivalentFocalLength.h"

namespace zenivo {

/// Values that are missing stay as they are kept.
struct MatchQuestion {
  std::optional<std::string> camera;   ///< whose lens is known
  std::optional<std::string> camera2;  ///< to be matched
  LensQuestion lens;
  std::optional<float> fstop;            ///< the nearest stop is taken
  std::optional<float> subjectDistance;  ///< metres
};

struct MatchReport {
  Setup setup;
  AbstractCamera camera2;
  EquivalentFocalLength model;
  /// Why the second camera has no aperture with the same depth of field; none where it has
  /// one or where its aperture is fixed.
  EditResult apertureRefusal;
};

/// What was given is kept in the session.  Throws InputError for what the camera fixes.
MatchReport answer(const MatchQuestion& question, CalculatorSession& session);

Readout readout(const MatchReport& report);
Json json(const MatchReport& report);

}  // namespace zenivo
