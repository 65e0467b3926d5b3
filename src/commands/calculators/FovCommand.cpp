// zenivo fov: what a lens sees, and what makes it see so.

#include <fmt/format.h>

#include "calculators/FovCalculator.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/CameraOption.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/FovDistanceCommand.h"
#include "commands/calculators/FreeVariable.h"
#include "commands/calculators/LensOptions.h"
#include "commands/calculators/OrientationOption.h"
#include "commands/calculators/ResultOptions.h"
#include "commands/calculators/SolveOption.h"

namespace zenivo::cli {
namespace {

using enum FovField;
using enum FovFreeVariable;

bool isAngle(FovField field) {
  return field <= diagonalAov;
}

ResultOptions<FovField> fovResults() {
  return ResultOptions<FovField>(
      {{horizontalAov, {"--horizontal-angle", "40°"}, "Solve for this horizontal angle of view"},
       {verticalAov, {"--vertical-angle", "27°"}, "Solve for this vertical angle of view"},
       {diagonalAov, {"--diagonal-angle", "46.8°"}, "Solve for this diagonal angle of view"},
       {horizontalFov, {"--width", "7m"}, "Solve for this width of the scene"},
       {verticalFov, {"--height", "5m"}, "Solve for this height of the scene"},
       {diagonalFov, {"--diagonal", "9m"}, "Solve for this diagonal of the scene"}});
}

/// The key of each result in JSON, in the order of FovCalculator::results().
struct ResultKey {
  std::string_view key;
  FovField field;
  float (Fov::*value)() const;
};

constexpr ResultKey kResults[] = {{"horizontalAngle", horizontalAov, &Fov::horizontalAov},
                                  {"verticalAngle", verticalAov, &Fov::verticalAov},
                                  {"diagonalAngle", diagonalAov, &Fov::diagonalAov},
                                  {"width", horizontalFov, &Fov::horizontalFov},
                                  {"height", verticalFov, &Fov::verticalFov},
                                  {"diagonal", diagonalFov, &Fov::diagonalFov}};

/// What an inverse calculation was asked for.
struct Question {
  FovFreeVariable variable;
  const ResultOption<FovField>* given;
};

Role roleOf(FovFreeVariable input, const std::optional<Question>& asked) {
  return asked && asked->variable == input ? Role::solved : Role::none;
}

CalculatorAnswer answerOf(const FovCalculator& calculator, CalculatorSession& session,
                          const AbstractCamera& camera, const std::optional<Question>& asked) {
  const CalculatorEnvironment environment = session.environment();
  const Fov& model = calculator.model();
  CalculatorAnswer answer(environment.units.currentUnits());
  answer.addCamera("camera", camera);
  addLens(answer, lensOf(model), environment.defaults, camera, roleOf(focalLength, asked));
  answer.addInput({"subjectDistance", calculatorText("subject_distance"),
                   inMetres(model.subjectDistance(),
                            environment.formatter().formatDistance(model.subjectDistance())),
                   roleOf(subjectDistance, asked)});
  addOrientation(answer, model.isPortrait());
  const auto rows = calculator.results();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto& [key, field, value] = kResults[i];
    const auto quantity = isAngle(field) ? inDegrees : inMetres;
    const bool isGiven = asked && field == asked->given->field;
    answer.addResult({key, rows[i].label(), quantity((model.*value)(), rows[i].text),
                      isGiven ? Role::given : Role::none});
  }
  return answer;
}

class FovCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  void edit(FovCalculator& calculator, CalculatorSession& session,
            const AbstractCamera& camera) const;
  void solve(FovInverseCalculator& calculator, const Question& question, UnitSystem units) const;

  CLI::App* app_ = nullptr;
  FovDistanceCommand distanceCommand_;
  CameraOption camera_;
  LensOptions lens_;
  TypedOption distance_{"--distance", "10m"};
  OrientationOption orientation_;
  ResultOptions<FovField> results_ = fovResults();
  SolveOption<FovFreeVariable> solve_{{{"focal", focalLength}, {"distance", subjectDistance}}};
  CalculatorOptions options_;
};

void FovCommand::addTo(CLI::App& program) {
  app_ = program.add_subcommand("fov", "Field of view, and what gives the one you want");
  camera_.addTo(*app_, "The camera");
  lens_.addTo(*app_);
  distance_.addTo(*app_, "Distance of the subject");
  orientation_.addTo(*app_);
  results_.addTo(*app_);
  solve_.addTo(*app_);
  options_.addTo(*app_);
  distanceCommand_.addTo(*app_);
  app_->footer(
      "Angles are those of a lens focused at infinity.  A value that is not given is that of\n"
      "the last call with --save.\n"
      "\n"
      "Examples:\n"
      "  zenivo fov --focal 50mm --distance 10m\n"
      "  zenivo fov --focal 24mm --portrait --units imperial --json\n"
      "  zenivo fov --horizontal-angle 84 --solve focal\n"
      "  zenivo fov --width 7m --focal 85mm --solve distance");
}

std::string FovCommand::run(const Terminal& terminal, const GoOn&) {
  if (distanceCommand_.isChosen()) {
    expectNoOptions(*app_, "fov distance");
    return distanceCommand_.run(terminal);
  }
  CalculatorSession session;
  options_.applyTo(session);
  const AbstractCamera camera = camera_.applyTo(session);
  const CalculatorEnvironment environment = session.environment();
  FovCalculator forward(environment);
  forward.load();
  edit(forward, session, camera);
  const auto* given = results_.given();
  if (given == nullptr) {
    if (solve_.isGiven())
      throw InputError("--solve needs a result, as --width or --diagonal-angle");
    options_.saveIfAsked(forward, session);
    return answerOf(forward, session, camera, std::nullopt).print(options_.wantsJson(), terminal);
  }
  forward.save();  // into the session, where the inverse calculator finds the inputs
  FovInverseCalculator inverse(environment);
  inverse.load();
  const Question asked{
      freeVariable<FovFreeVariable>(solve_.variable(), inverse.freeVariable(),
                                    {{focalLength, &lens_.focal()}, {subjectDistance, &distance_}}),
      given};
  solve(inverse, asked, environment.units.currentUnits());
  options_.saveIfAsked(inverse, session);
  return answerOf(inverse, session, camera, asked).print(options_.wantsJson(), terminal);
}

void FovCommand::edit(FovCalculator& calculator, CalculatorSession& session,
                      const AbstractCamera& camera) const {
  lens_.applyTo(calculator, lensOf(calculator.model()), session.settings(), camera);
  const UnitSystem units = session.environment().units.currentUnits();
  if (const auto metres = distance_.readPositive(CameraValuesParser::parseDistance, units)) {
    expectTaken(calculator.setSubjectDistance(*metres));
  }
  if (const auto isPortrait = orientation_.isPortrait()) {
    expectTaken(calculator.setIsPortrait(*isPortrait));
  }
}

void FovCommand::solve(FovInverseCalculator& calculator, const Question& question,
                       UnitSystem units) const {
  const auto& [field, option, description] = *question.given;
  calculator.setFreeVariable(question.variable);
  calculator.setActiveField(field);
  if (calculator.activeField() != field) solve_.refuseDistance(option.name());
  const auto value = isAngle(field) ? option.read(CameraValuesParser::parseAngle)
                                    : option.read(CameraValuesParser::parseDistance, units);
  expectTaken(calculator.setActiveFieldValue(*value));
}

}  // namespace

std::unique_ptr<Command> makeFovCommand() {
  return std::make_unique<FovCommand>();
}

}  // namespace zenivo::cli
