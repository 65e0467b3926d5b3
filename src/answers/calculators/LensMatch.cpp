#include "answers/calculators/LensMatch.h"

#include "calculators/EquivalentFocalLengthCalculator.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

/// A matching focal length, 0 where there is none.
Quantity matchingFocalLength(float metres) {
  if (!(metres > 0)) return {nullptr, "mm", kNoValueText};
  return {numberJson(metres * 1000), "mm", CameraValuesFormatter::formatFocalLength(metres)};
}

Quantity matchingAperture(const FocalLengthMatch& match) {
  if (!match.camera2Dof) return {nullptr, "", kNoValueText};
  return withoutUnit(match.fstop, CameraValuesFormatter::formatAperture(match.fstop));
}

}  // namespace

MatchReport answer(const MatchQuestion& question, CalculatorSession& session) {
  const Setup setup = setupWith(question.camera, session);
  const AbstractCamera camera2 = chooseCamera(question.camera2, session, kSecondCameraKeys, "--to");
  const CalculatorEnvironment environment = session.environment();
  EquivalentFocalLengthCalculator calculator(environment);
  calculator.load();
  editLens(calculator, lensOf(calculator.model()), question.lens, setup);
  if (question.fstop) {
    expectTaken(calculator.setAperture(environment.apertures.apertureForStop(*question.fstop)));
  }
  if (question.subjectDistance) calculator.setSubjectDistance(*question.subjectDistance);
  calculator.save();
  return {setup, camera2, calculator.model(), calculator.apertureRefusal()};
}

Readout readout(const MatchReport& report) {
  const auto& [setup, camera2, model, apertureRefusal] = report;
  const FocalLengthMatch& match = model.match();
  Readout readout = readoutOf(setup);
  readout.cameras.push_back({"camera2", camera2});
  addLens(readout, lensOf(model), setup);
  addAperture(readout, model.aperture());
  addSubjectDistance(readout, model.subjectDistance(), setup);
  readout.resultsTitle = camera2.modelString();
  readout.results = {
      {"horizontal", calculatorText("fov_focal_match_horizontal"),
       matchingFocalLength(match.horizontal)},
      {"vertical", calculatorText("fov_focal_match_vertical"), matchingFocalLength(match.vertical)},
      {"diagonal", calculatorText("fov_focal_match_diagonal"), matchingFocalLength(match.diagonal)},
      {"aperture", "Same depth of field", matchingAperture(match)}};
  if (apertureRefusal) readout.notes.push_back(apertureRefusal->message());
  return readout;
}

Json json(const MatchReport& report) {
  return json(readout(report));
}

}  // namespace zenivo
