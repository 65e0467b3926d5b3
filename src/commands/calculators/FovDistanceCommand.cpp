#include "commands/calculators/FovDistanceCommand.h"

#include "calculators/FovSubjectDistanceCalculator.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"

namespace zenivo::cli {
namespace {

CalculatorAnswer answerOf(const FovSubjectDistanceCalculator& calculator,
                          CalculatorSession& session, const AbstractCamera& camera) {
  const CalculatorEnvironment environment = session.environment();
  const CameraValuesFormatter formatter = environment.formatter();
  const FovSubjectDistance& model = calculator.model();
  const auto metres = [&formatter](float value) {
    return inMetres(value, formatter.formatDistance(value));
  };
  CalculatorAnswer answer(environment.units.currentUnits());
  answer.addCamera("camera", camera);
  addLens(answer, lensOf(model), environment.defaults, camera);
  answer.addInput({"objectWidth", "Width of the object", metres(model.objectWidth())});
  answer.addInput({"objectHeight", "Height of the object", metres(model.objectHeight())});
  addOrientation(answer, model.isPortrait());
  const ResultRow row = calculator.results().front();
  answer.addResult({"minimumDistance", row.label(),
                    inMetres(model.calculateMinimumSubjectDistance(), row.text)});
  return answer;
}

}  // namespace

void FovDistanceCommand::addTo(CLI::App& command) {
  CLI::App* app = command.add_subcommand("distance", "How far away an object fits into the frame");
  camera_.addTo(*app, "The camera");
  lens_.addTo(*app);
  width_.addTo(*app, "Width of the object");
  height_.addTo(*app, "Height of the object");
  orientation_.addTo(*app);
  options_.addTo(*app);
  app->footer(
      "A value that is not given is that of the last call with --save.\n"
      "\n"
      "Examples:\n"
      "  zenivo fov distance --width 2m --height 1.8m --focal 85mm\n"
      "  zenivo fov distance --height 324m --width 125m --focal 24mm --portrait --json");
  app_ = app;
}

std::string FovDistanceCommand::run(const Terminal& terminal) const {
  CalculatorSession session;
  options_.applyTo(session);
  const AbstractCamera camera = camera_.applyTo(session);
  const UnitSystem units = session.environment().units.currentUnits();
  FovSubjectDistanceCalculator calculator(session.environment());
  calculator.load();
  lens_.applyTo(calculator, lensOf(calculator.model()), session.settings(), camera);
  const auto width = width_.readPositive(CameraValuesParser::parseDistance, units);
  const auto height = height_.readPositive(CameraValuesParser::parseDistance, units);
  calculator.setObjectSize(width.value_or(calculator.model().objectWidth()),
                           height.value_or(calculator.model().objectHeight()));
  if (const auto isPortrait = orientation_.isPortrait()) calculator.setIsPortrait(*isPortrait);
  options_.saveIfAsked(calculator, session);
  return answerOf(calculator, session, camera).print(options_.wantsJson(), terminal);
}

}  // namespace zenivo::cli
