// zenivo match: the lens with which a second camera sees what a first one does.

#include "calculators/EquivalentFocalLengthCalculator.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/CameraOption.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/LensOptions.h"

namespace zenivo::cli {
namespace {

/// A matching focal length, 0 where there is none.
Quantity focalLengthOf(float metres, const std::string& text) {
  return {metres > 0 ? numberJson(metres * 1000) : Json(nullptr), "mm", text};
}

CalculatorAnswer answerOf(const EquivalentFocalLengthCalculator& calculator,
                          CalculatorSession& session, const AbstractCamera& camera,
                          const AbstractCamera& camera2) {
  const CalculatorEnvironment environment = session.environment();
  const EquivalentFocalLength& model = calculator.model();
  CalculatorAnswer answer(environment.units.currentUnits());
  answer.addCamera("camera", camera);
  answer.addCamera("camera2", camera2);
  addLens(answer, lensOf(model), environment.defaults, camera);
  addAperture(answer, model.aperture());
  answer.addInput({"subjectDistance", calculatorText("subject_distance"),
                   inMetres(model.subjectDistance(),
                            environment.formatter().formatDistance(model.subjectDistance()))});
  const FocalLengthMatch& match = model.match();
  const auto rows = calculator.results();
  answer.setResultsTitle(camera2.modelString());
  answer.addResult({"horizontal", rows[0].label(), focalLengthOf(match.horizontal, rows[0].text)});
  answer.addResult({"vertical", rows[1].label(), focalLengthOf(match.vertical, rows[1].text)});
  answer.addResult({"diagonal", rows[2].label(), focalLengthOf(match.diagonal, rows[2].text)});
  answer.addResult(
      {"aperture",
       "Same depth of field",
       {match.camera2Dof ? numberJson(match.fstop) : Json(nullptr), "", rows[3].text}});
  if (const auto refusal = calculator.apertureRefusal()) answer.addNote(refusal->message());
  return answer;
}

class MatchCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  CameraOption camera_;
  CameraOption camera2_{"--to", kSecondCameraKeys};
  LensOptions lens_;
  TypedOption aperture_{"--aperture", "f/2.8"};
  TypedOption distance_{"--distance", "3m"};
  CalculatorOptions options_;
};

void MatchCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("match", "The equivalent lens of another camera");
  camera_.addTo(*app, "The camera whose lens is known");
  camera2_.addTo(*app, "The camera to match");
  lens_.addTo(*app);
  aperture_.addTo(*app, "Aperture; the nearest stop is taken");
  distance_.addTo(*app, "Distance of the subject");
  options_.addTo(*app);
  app->footer(
      "The aperture is the stop that comes nearest to the same depth of field.\n"
      "\n"
      "Examples:\n"
      "  zenivo match --to \"Fujifilm X-T4\" --focal 50mm --aperture f/4 --distance 5m\n"
      "  zenivo match --camera \"Canon EOS R\" --to \"Film 6x7\" --focal 35mm --json");
}

std::string MatchCommand::run(const Terminal& terminal, const GoOn&) {
  CalculatorSession session;
  options_.applyTo(session);
  const AbstractCamera camera = camera_.applyTo(session);
  const AbstractCamera camera2 = camera2_.applyTo(session);
  const CalculatorEnvironment environment = session.environment();
  EquivalentFocalLengthCalculator calculator(environment);
  calculator.load();
  lens_.applyTo(calculator, lensOf(calculator.model()), session.settings(), camera);
  if (const auto fstop = aperture_.read(CameraValuesParser::parseAperture)) {
    expectTaken(calculator.setAperture(environment.apertures.apertureForStop(*fstop)));
  }
  if (const auto metres = distance_.readPositive(CameraValuesParser::parseDistance,
                                                 environment.units.currentUnits())) {
    calculator.setSubjectDistance(*metres);
  }
  options_.saveIfAsked(calculator, session);
  return answerOf(calculator, session, camera, camera2).print(options_.wantsJson(), terminal);
}

}  // namespace

std::unique_ptr<Command> makeMatchCommand() {
  return std::make_unique<MatchCommand>();
}

}  // namespace zenivo::cli
