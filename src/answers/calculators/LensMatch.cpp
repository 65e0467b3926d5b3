#include "answers/calculators/LensMatch.h"

#include <fmt/format.h>

#include <cmath>

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

/// What the second camera does where its lens is fixed: its own depth of field with the stop
/// that matches, else with its own.
std::optional<Dof> dofOfFixedLens(const MatchReport& report) {
  const auto& camera = report.camera2;
  const FocalLengthMatch& match = report.model.match();
  if (match.camera2Dof) return match.camera2Dof;
  if (!camera.isFixedAperture()) return std::nullopt;
  const double fstop = camera.fixedAperture;
  return Dof(camera.fixedFocalLengthInMetres(), {fstop, fstop}, report.model.subjectDistance(), 1,
             1, camera.coc);
}

/// The angles and the depths of both cameras, side by side, where no lens can be matched.
void addFixedLens(Readout& readout, const MatchReport& report) {
  const auto& [setup, camera2, model, apertureRefusal] = report;
  const FocalLengthMatch& match = model.match();
  Fov fov(camera2.sensorSize.width, camera2.sensorSize.height, camera2.fixedFocalLengthInMetres(),
          1, 1, model.subjectDistance());
  fov.calculateFOVValues();
  const auto angle = [](float degrees) {
    return inDegrees(degrees, CameraValuesFormatter::formatAngle(degrees));
  };
  const auto depth = [&setup = report.setup](float metres) {
    return inMetres(metres, setup.lengthText(metres));
  };
  const std::string angleLabel = calculatorText("fov_diagonal_aov");
  const std::string depthLabel = calculatorText("dof_total_dof");
  readout.results.push_back({"angle", angleLabel, angle(fov.diagonalAov())});
  readout.results.push_back({"cameraAngle", angleLabel + " of the " + setup.camera.modelString(),
                             angle(match.camera1Fov.diagonalAov())});
  const auto dof = dofOfFixedLens(report);
  readout.results.push_back(
      {"depth", depthLabel,
       dof ? depth(dof->depthOfField()) : Quantity{nullptr, "m", kNoValueText}});
  readout.results.push_back({"cameraDepth", depthLabel + " of the " + setup.camera.modelString(),
                             depth(match.camera1Dof.depthOfField())});
  readout.notes.push_back(
      fmt::format("The lens of the {} is fixed, at {}.", camera2.modelString(),
                  CameraValuesFormatter::formatFocalLength(camera2.fixedFocalLengthInMetres())));
}

/// Says so where the stop is the nearest there is and yet not the one that matches.
void addStopNote(Readout& readout, const MatchReport& report) {
  constexpr double kWorthSaying = 2.0 / 3;  // stops
  const FocalLengthMatch& match = report.model.match();
  if (!match.camera2Dof) return;
  const double stops = 2 * std::log2(match.camera2Dof->aperture().value / match.exactFstop);
  if (std::abs(stops) <= kWorthSaying) return;
  readout.notes.push_back(fmt::format(
      "{} is the nearest there is: {} are sharp with it, {} with the {}.",
      CameraValuesFormatter::formatAperture(match.fstop),
      report.setup.lengthText(match.camera2Dof->depthOfField()),
      report.setup.lengthText(match.camera1Dof.depthOfField()), report.setup.camera.modelString()));
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
  if (camera2.isFixedFocalLength()) addFixedLens(readout, report);
  if (camera2.isFixedAperture()) {
    readout.notes.push_back(
        fmt::format("The aperture of the {} is fixed, at {}.", camera2.modelString(),
                    CameraValuesFormatter::formatAperture(camera2.fixedAperture)));
  }
  addStopNote(readout, report);
  if (apertureRefusal) readout.notes.push_back(apertureRefusal->message());
  return readout;
}

Json json(const MatchReport& report) {
  return json(readout(report));
}

}  // namespace zenivo
