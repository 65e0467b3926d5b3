#include "answers/calculators/DepthOfField.h"

#include <fmt/format.h>

#include "calculators/CocForm.h"
#include "calculators/camera/Texts.h"

namespace zenivo {
namespace {

/// A result as it is read out.
struct DofResultRow {
  std::string_view key;       ///< in JSON
  std::string_view labelKey;  ///< of the table Calculators
  std::optional<DofField> field;
  float (Dof::*value)() const;
  bool isShare;  ///< of the depth
};

constexpr DofResultRow kDofResults[] = {
    {"hyperfocal", "dof_hyperfocal_distance", DofField::hyperfocal, &Dof::hyperfocal, false},
    {"hyperfocalNearLimit", "dof_hyperfocal_near_limit", DofField::hyperfocalNearLimit,
     &Dof::hyperfocalNearLimit, false},
    {"nearLimit", "dof_near_limit", DofField::nearLimit, &Dof::dofNearLimit, false},
    {"farLimit", "dof_far_limit", DofField::farLimit, &Dof::dofFarLimit, false},
    {"depthOfField", "dof_total_dof", DofField::totalDof, &Dof::depthOfField, false},
    {"depthInFront", "dof_depth_in_front", std::nullopt, &Dof::depthOfFieldInFront, true},
    {"depthBehind", "dof_depth_behind", std::nullopt, &Dof::depthOfFieldBehind, true}};

/// Stores what was given of the circle of confusion in the settings.
void keepCoc(const CocQuestion& question, const CalculatorEnvironment& environment) {
  if (question.own && question.describesPrint()) {
    throw InputError("--coc and the size of a print exclude each other");
  }
  if (!question.own && !question.describesPrint()) return;
  CocForm form(environment);
  CocCalculator& model = form.model();
  model.setAutoCalculateCoc(question.describesPrint());
  if (question.printWidth) model.setPrintWidth(*question.printWidth);
  if (question.printHeight) model.setPrintHeight(*question.printHeight);
  if (question.viewingDistance) model.setViewingDistance(*question.viewingDistance);
  if (question.eyesight) model.setEyesight(*question.eyesight);
  expectTaken(form.done(question.own ? fmt::format("{:.12f}", *question.own) : ""));
}

void edit(DofCalculator& calculator, const DofQuestion& question, const Setup& setup,
          const ApertureManager& apertures) {
  editLens(calculator, lensOf(calculator.model()), question.lens, setup);
  if (question.fstop) {
    expectTaken(calculator.setAperture(apertures.apertureForStop(*question.fstop)));
  }
  if (question.subjectDistance) {
    expectTaken(calculator.setSubjectDistance(*question.subjectDistance));
  }
}

/// Solves what is wanted with the inputs that the session keeps.
DofReport answerInverse(const DofQuestion& question, const Setup& setup,
                        const CalculatorEnvironment& environment) {
  DofInverseCalculator inverse(environment, question.coc.form());
  inverse.load();
  const DofField input =
      freeVariable(question.solveFor, inverse.freeVariable(),
                   {{DofField::focalLength, "focal", question.lens.focalLength.has_value()},
                    {DofField::aperture, "aperture", question.fstop.has_value()},
                    {DofField::subjectDistance, "distance", question.subjectDistance.has_value()}});
  solveFor(inverse, input, *question.wanted,
           wordOf<DofField>(question.wanted->result, kDofResultWords));
  inverse.save();
  return {setup, inverse.model(), Solved{input, question.wanted->result, question.wanted->value},
          ""};
}

}  // namespace

DofReport answer(const DofQuestion& question, CalculatorSession& session) {
  const Setup setup = setupWith(question.camera, session);
  const CalculatorEnvironment environment = session.environment();
  keepCoc(question.coc, environment);
  DofCalculator forward(environment, question.coc.form());
  forward.load();
  edit(forward, question, setup, environment.apertures);
  forward.save();
  DofReport report{setup, forward.model(), std::nullopt, ""};
  if (question.wanted) report = answerInverse(question, setup, environment);
  // The next question is the basic one again, unless it says otherwise.
  if (question.isSaved && !question.coc.isAdvanced && question.coc.form() == DofForm::advanced) {
    report.note =
        "Kept for zenivo dof --advanced: without it the camera's circle of confusion holds.";
  }
  return report;
}

Readout readout(const DofReport& report) {
  const auto& [setup, dof, solved, note] = report;
  Readout readout = readoutOf(setup);
  addLens(readout, lensOf(dof), setup, roleOfInput(solved, DofField::focalLength));
  addAperture(readout, dof.aperture(), roleOfInput(solved, DofField::aperture));
  addSubjectDistance(readout, dof.subjectDistance(), setup,
                     roleOfInput(solved, DofField::subjectDistance));
  const float coc = dof.circleOfConfusion();
  readout.inputs.push_back({"circleOfConfusion", "Circle of confusion",
                            inMillimetres(coc, CameraValuesFormatter::formatCoC(coc * 1000))});
  for (const auto& [key, labelKey, field, value, isShare] : kDofResults) {
    const float metres = (dof.*value)();
    const std::string text =
        isShare ? setup.shareText(metres, dof.depthOfField()) : setup.lengthText(metres);
    readout.results.push_back({key, calculatorText(labelKey), inMetres(metres, text),
                               roleOfResult(solved, field, metres)});
    if (readout.results.back().role == Role::missed) {
      readout.notes.push_back(missNote(readout.results.back(), setup.lengthText(solved->wanted)));
    }
  }
  if (!note.empty()) readout.notes.push_back(note);
  return readout;
}

Json json(const DofReport& report) {
  return json(readout(report));
}

}  // namespace zenivo
