#include "answers/calculators/FieldOfView.h"

#include "calculators/FovCalculator.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

/// A result as it is read out.
struct FovResultRow {
  std::string_view key;       ///< in JSON
  std::string_view labelKey;  ///< of the table Calculators
  FovField field;
  float (Fov::*value)() const;
};

constexpr FovResultRow kFovResults[] = {
    {"horizontalAngle", "fov_horizontal_aov", FovField::horizontalAov, &Fov::horizontalAov},
    {"verticalAngle", "fov_vertical_aov", FovField::verticalAov, &Fov::verticalAov},
    {"diagonalAngle", "fov_diagonal_aov", FovField::diagonalAov, &Fov::diagonalAov},
    {"width", "fov_horizontal_fov", FovField::horizontalFov, &Fov::horizontalFov},
    {"height", "fov_vertical_fov", FovField::verticalFov, &Fov::verticalFov},
    {"diagonal", "fov_diagonal_fov", FovField::diagonalFov, &Fov::diagonalFov}};

/// Solves what is wanted with the inputs that the session keeps.
FovReport answerInverse(const FovQuestion& question, const Setup& setup,
                        const CalculatorEnvironment& environment) {
  FovInverseCalculator inverse(environment);
  inverse.load();
  const FovFreeVariable input = freeVariable(
      question.solveFor, inverse.freeVariable(),
      {{FovFreeVariable::focalLength, "focal", question.lens.focalLength.has_value()},
       {FovFreeVariable::subjectDistance, "distance", question.subjectDistance.has_value()}});
  solveFor(inverse, input, *question.wanted,
           wordOf<FovField>(question.wanted->result, kFovResultWords));
  inverse.save();
  return {setup, inverse.model(), Solved{input, question.wanted->result, question.wanted->value}};
}

}  // namespace

FovReport answer(const FovQuestion& question, CalculatorSession& session) {
  const Setup setup = setupWith(question.camera, session);
  FovCalculator forward(session.environment());
  forward.load();
  editLens(forward, lensOf(forward.model()), question.lens, setup);
  if (question.subjectDistance) expectTaken(forward.setSubjectDistance(*question.subjectDistance));
  if (question.isPortrait) expectTaken(forward.setIsPortrait(*question.isPortrait));
  forward.save();
  if (question.wanted) return answerInverse(question, setup, session.environment());
  return {setup, forward.model(), std::nullopt};
}

Readout readout(const FovReport& report) {
  const auto& [setup, fov, solved] = report;
  Readout readout = readoutOf(setup);
  addLens(readout, lensOf(fov), setup, roleOfInput(solved, FovFreeVariable::focalLength));
  addSubjectDistance(readout, fov.subjectDistance(), setup,
                     roleOfInput(solved, FovFreeVariable::subjectDistance));
  addOrientation(readout, fov.isPortrait());
  for (const auto& [key, labelKey, field, value] : kFovResults) {
    const float number = (fov.*value)();
    readout.results.push_back({key, calculatorText(labelKey),
                               isAngle(field)
                                   ? inDegrees(number, CameraValuesFormatter::formatAngle(number))
                                   : inMetres(number, setup.lengthText(number)),
                               roleOfResult(solved, std::optional(field), number)});
  }
  return readout;
}

Json json(const FovReport& report) {
  return json(readout(report));
}

FovDistanceReport answer(const FovDistanceQuestion& question, CalculatorSession& session) {
  const Setup setup = setupWith(question.camera, session);
  FovSubjectDistanceCalculator calculator(session.environment());
  calculator.load();
  editLens(calculator, lensOf(calculator.model()), question.lens, setup);
  calculator.setObjectSize(question.width.value_or(calculator.model().objectWidth()),
                           question.height.value_or(calculator.model().objectHeight()));
  if (question.isPortrait) calculator.setIsPortrait(*question.isPortrait);
  calculator.save();
  return {setup, calculator.model()};
}

Readout readout(const FovDistanceReport& report) {
  const auto& [setup, model] = report;
  const auto metres = [&setup = report.setup](float value) {
    return inMetres(value, setup.lengthText(value));
  };
  Readout readout = readoutOf(setup);
  addLens(readout, lensOf(model), setup);
  readout.inputs.push_back({"objectWidth", "Width of the object", metres(model.objectWidth())});
  readout.inputs.push_back({"objectHeight", "Height of the object", metres(model.objectHeight())});
  addOrientation(readout, model.isPortrait());
  readout.results.push_back({"minimumDistance", calculatorText("fov_subject_distance_min_distance"),
                             metres(model.calculateMinimumSubjectDistance())});
  return readout;
}

Json json(const FovDistanceReport& report) {
  return json(readout(report));
}

}  // namespace zenivo
