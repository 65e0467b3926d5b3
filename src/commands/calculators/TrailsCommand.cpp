// zenivo trails: how far stars trail.

#include "calculators/StarTrailCalculator.h"
#include "calculators/camera/CameraValuesParser.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/TypedOption.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

class TrailsCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  TypedOption time_{"--time", "30min"};
  TypedOption angle_{"--angle", "15°"};
  std::string hemisphere_;
  CalculatorOptions options_;
};

void TrailsCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("trails", "How far stars trail in a long exposure");
  CLI::Option* time = time_.addTo(*app, "Exposure time");
  angle_.addTo(*app, "Solve for the time in which the stars sweep this angle")->excludes(time);
  app->add_option("--hemisphere", hemisphere_, "The pole that the stars turn about")
      ->type_name("HEMISPHERE")
      ->check(CLI::IsMember({"north", "south"}));
  options_.addTo(*app, Lengths::none);
  app->footer(
      "A value that is not given is that of the last call with --save.\n"
      "\n"
      "Examples:\n"
      "  zenivo trails --time 1h30min\n"
      "  zenivo trails --angle 30 --hemisphere south --json");
}

std::string TrailsCommand::run(const Terminal& terminal, const GoOn&) {
  CalculatorSession session;
  options_.applyTo(session);
  StarTrailCalculator calculator(session.settings());
  if (const auto seconds = time_.readPositive(CameraValuesParser::parseTimeDuration)) {
    calculator.setExposureTime(static_cast<float>(*seconds));
  }
  if (const auto degrees = angle_.readPositive(CameraValuesParser::parseAngle)) {
    calculator.setAngle(*degrees);
  }
  if (!hemisphere_.empty()) calculator.setIsNorthHemisphere(hemisphere_ == "north");
  options_.saveIfAsked(calculator, session);

  const NightModel& model = calculator.model();
  const auto rows = calculator.results();
  const Role timeRole = angle_.isGiven() ? Role::solved : Role::none;
  const Role angleRole = angle_.isGiven() ? Role::given : Role::none;
  CalculatorAnswer answer(session.environment().units.currentUnits());
  answer.addInput(
      {"exposureTime", rows[0].label(), inSeconds(model.exposureTime, rows[0].text), timeRole});
  answer.addInput({"hemisphere",
                   rows[2].label(),
                   {model.isNorthHemisphere ? "north" : "south", "", rows[2].text}});
  answer.addResult({"angle", rows[1].label(), inDegrees(model.angle, rows[1].text), angleRole});
  return answer.print(options_.wantsJson(), terminal);
}

}  // namespace

std::unique_ptr<Command> makeTrailsCommand() {
  return std::make_unique<TrailsCommand>();
}

}  // namespace zenivo::cli
