// What a lens sees, and what makes it see so.

#pragma once

#include <optional>
#include <string>

#include "answers/calculators/CameraAndLens.h"
#include "answers/calculators/Inverse.h"
#include "answers/calculators/Readout.h"
#include "answers/common/CalculatorSession.h"
#include "calculators/FovCalculator.h"
#include "calculators/models/Fov.h"

namespace zenivo {

/// Values that are missing stay as they are kept, here and below.
struct FovQuestion {
  std::optional<std::string> camera;
  LensQuestion lens;
  std::optional<float> subjectDistance;  ///< metres
  std::optional<bool> isPortrait;
  /// Asks for the value of `solveFor` that gives this result, in degrees or metres.
  std::optional<WantedResult<FovField>> wanted;
  std::optional<FovFreeVariable> solveFor;  ///< as kept where nothing is said
};

struct FovReport {
  Setup setup;
  Fov fov;
  std::optional<Solved<FovFreeVariable, FovField>> solved;
};

/// The words of the inputs and of the results that can be wanted.
inline constexpr Word<FovFreeVariable> kFovInputWords[] = {
    {FovFreeVariable::focalLength, "focal"}, {FovFreeVariable::subjectDistance, "distance"}};
inline constexpr Word<FovField> kFovResultWords[] = {{FovField::horizontalAov, "horizontal-angle"},
                                                     {FovField::verticalAov, "vertical-angle"},
                                                     {FovField::diagonalAov, "diagonal-angle"},
                                                     {FovField::horizontalFov, "width"},
                                                     {FovField::verticalFov, "height"},
                                                     {FovField::diagonalFov, "diagonal"}};

inline bool isAngle(FovField field) {
  return field <= FovField::diagonalAov;
}

/// What was given is kept in the session, here and below.  Throws InputError for what makes
/// no sense together, for what the camera fixes, and for what nothing gives.
FovReport answer(const FovQuestion& question, CalculatorSession& session);

Readout readout(const FovReport& report);
Json json(const FovReport& report);

/// How far away an object fits into the frame.
struct FovDistanceQuestion {
  std::optional<std::string> camera;
  LensQuestion lens;
  std::optional<float> width;   ///< of the object, metres
  std::optional<float> height;  ///< the same
  std::optional<bool> isPortrait;
};

struct FovDistanceReport {
  Setup setup;
  FovSubjectDistance model;
};

FovDistanceReport answer(const FovDistanceQuestion& question, CalculatorSession& session);

Readout readout(const FovDistanceReport& report);
Json json(const FovDistanceReport& report);

}  // namespace zenivo
