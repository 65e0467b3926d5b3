// What is sharp, and what makes it so.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "answers/calculators/CameraAndLens.h"
#include "answers/calculators/Inverse.h"
#include "answers/calculators/Readout.h"
#include "answers/common/CalculatorSession.h"
#include "calculators/DofCalculator.h"

namespace zenivo {

/// The circle of confusion of the advanced form: one of one's own, or that of a print.
struct CocQuestion {
  bool isAdvanced = false;
  std::optional<float> own;         ///< millimetres
  std::optional<float> printWidth;  ///< metres, here and below
  std::optional<float> printHeight;
  std::optional<float> viewingDistance;
  std::optional<std::int64_t> eyesight;  ///< see CocCalculator

  bool describesPrint() const { return printWidth || printHeight || viewingDistance || eyesight; }
  /// Each of the values asks for the advanced form.
  DofForm form() const {
    return isAdvanced || own || describesPrint() ? DofForm::advanced : DofForm::basic;
  }
};

/// Values that are missing stay as they are kept.
struct DofQuestion {
  std::optional<std::string> camera;
  LensQuestion lens;
  std::optional<float> fstop;            ///< the nearest stop is taken
  std::optional<float> subjectDistance;  ///< metres
  CocQuestion coc;
  /// Asks for the value of `solveFor` that gives this result, in metres; a far limit below 0
  /// is infinity.
  std::optional<WantedResult<DofField>> wanted;
  std::optional<DofField> solveFor;  ///< as kept where nothing is said
  bool isSaved = false;              ///< for the next question
};

struct DofReport {
  Setup setup;
  Dof dof;
  std::optional<Solved<DofField, DofField>> solved;
  std::string note;  ///< what the one who asks should know; mostly empty
};

/// The words of the inputs and of the results that can be wanted.
inline constexpr Word<DofField> kDofInputWords[] = {{DofField::focalLength, "focal"},
                                                    {DofField::aperture, "aperture"},
                                                    {DofField::subjectDistance, "distance"}};
inline constexpr Word<DofField> kDofResultWords[] = {
    {DofField::hyperfocal, "hyperfocal"},
    {DofField::hyperfocalNearLimit, "hyperfocal-near"},
    {DofField::nearLimit, "near"},
    {DofField::farLimit, "far"},
    {DofField::totalDof, "depth"}};

/// What was given is kept in the session.  Throws InputError for what makes no sense together,
/// for what the camera fixes, and for what nothing gives.
DofReport answer(const DofQuestion& question, CalculatorSession& session);

Readout readout(const DofReport& report);
Json json(const DofReport& report);

}  // namespace zenivo
