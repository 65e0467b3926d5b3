// zenivo stars: how long stars stay points.

#include <cmath>

#include "calculators/SpotStarsCalculator.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/CameraOption.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/LensOptions.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

CalculatorAnswer answerOf(const SpotStarsCalculator& calculator, CalculatorSession& session,
                          const AbstractCamera& camera) {
  const CalculatorEnvironment environment = session.environment();
  const SpotStarsModel& model = calculator.model();
  CalculatorAnswer answer(environment.units.currentUnits());
  answer.addCamera("camera", camera);
  addLens(answer, lensOf(model), environment.defaults, camera);
  addAperture(answer, model.aperture());
  answer.addInput(
      {"declination", "Declination",
       inDegrees(model.declination(), CameraValuesFormatter::formatAngle(model.declination()))});
  const bool isAccurate = model.accuracy() == SpotStarsAccuracy::accurate;
  answer.addInput({"accuracy",
                   "Accuracy",
                   {isAccurate ? "accurate" : "default", "",
                    SpotStarsCalculator::accuracyText(model.accuracy())}});
  const auto rows = calculator.results();
  answer.setResultsTitle(SpotStarsCalculator::resultsTitle());
  answer.addResult(
      {"npf", rows[0].label(), inSeconds(model.maxExposureTimeWithNPFRule(), rows[0].text)});
  answer.addResult({"ruleOf500", rows[1].label(),
                    inSeconds(model.maxExposureTimeWithRuleOf500(), rows[1].text)});
  return answer;
}

class StarsCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  void edit(SpotStarsCalculator& calculator, CalculatorSession& session,
            const AbstractCamera& camera) const;

  CameraOption camera_;
  LensOptions lens_;
  TypedOption aperture_{"--aperture", "f/2.8"};
  TypedOption declination_{"--declination", "-12.5°"};
  std::string accuracy_;
  CalculatorOptions options_;
};

void StarsCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("stars", "The longest exposure with stars as points");
  camera_.addTo(*app, "The camera");
  lens_.addTo(*app);
  aperture_.addTo(*app, "Aperture; the nearest stop is taken");
  declination_.addTo(*app, "Lowest declination, north or south, of the stars in the frame");
  app->add_option("--accuracy", accuracy_, "default, or accurate for half the trail")
      ->type_name("ACCURACY")
      ->check(CLI::IsMember({"default", "accurate"}));
  options_.addTo(*app, Lengths::none);
  app->footer(
      "By the NPF rule, from aperture, pixels and focal length, and by the rule of 500, the\n"
      "old rule of thumb.  Film has no pixels, and the NPF rule no limit for it.\n"
      "\n"
      "Examples:\n"
      "  zenivo stars --focal 20mm --aperture f/2.8\n"
      "  zenivo stars --camera \"Nikon D850\" --focal 14mm --declination -29 --accuracy accurate");
}

std::string StarsCommand::run(const Terminal& terminal, const GoOn&) {
  CalculatorSession session;
  options_.applyTo(session);
  const AbstractCamera camera = camera_.applyTo(session);
  SpotStarsCalculator calculator(session.environment());
  calculator.load();
  edit(calculator, session, camera);
  options_.saveIfAsked(calculator, session);
  return answerOf(calculator, session, camera).print(options_.wantsJson(), terminal);
}

void StarsCommand::edit(SpotStarsCalculator& calculator, CalculatorSession& session,
                        const AbstractCamera& camera) const {
  lens_.applyTo(calculator, lensOf(calculator.model()), session.settings(), camera);
  if (const auto fstop = aperture_.read(CameraValuesParser::parseAperture)) {
    expectTaken(calculator.setAperture(session.environment().apertures.apertureForStop(*fstop)));
  }
  if (const auto degrees = declination_.read(CameraValuesParser::parseAngle)) {
    if (!(std::abs(*degrees) <= 90)) throw InputError("--declination must be -90 to 90 degrees");
    calculator.setDeclination(*degrees);
  }
  if (!accuracy_.empty()) {
    calculator.setAccuracy(accuracy_ == "accurate" ? SpotStarsAccuracy::accurate
                                                   : SpotStarsAccuracy::standard);
  }
}

}  // namespace

std::unique_ptr<Command> makeStarsCommand() {
  return std::make_unique<StarsCommand>();
}

}  // namespace zenivo::cli
