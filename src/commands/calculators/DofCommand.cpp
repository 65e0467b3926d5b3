// zenivo dof: what is sharp, and what makes it so.

#include <fmt/format.h>

#include "calculators/DofCalculator.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/CameraOption.h"
#include "commands/calculators/CocOptions.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/DofTableCommand.h"
#include "commands/calculators/FreeVariable.h"
#include "commands/calculators/LensOptions.h"
#include "commands/calculators/ResultOptions.h"
#include "commands/calculators/SolveOption.h"

namespace zenivo::cli {
namespace {

using enum DofField;

ResultOptions<DofField> dofResults() {
  return ResultOptions<DofField>(
      {{hyperfocal, {"--hyperfocal", "8m"}, "Solve for this hyperfocal distance"},
       {hyperfocalNearLimit, {"--hyperfocal-near", "4m"}, "Solve for half of it, its near limit"},
       {nearLimit, {"--near", "2.5m"}, "Solve for this near limit"},
       {farLimit, {"--far", "12m"}, "Solve for this far limit; inf for infinity"},
       {totalDof, {"--depth", "1m"}, "Solve for this depth of field"}});
}

/// The key of each result in JSON, in the order of DofCalculator::results().
struct ResultKey {
  std::string_view key;
  std::optional<DofField> field;
  float (Dof::*value)() const;
};

constexpr ResultKey kResults[] = {
    {"hyperfocal", hyperfocal, &Dof::hyperfocal},
    {"hyperfocalNearLimit", hyperfocalNearLimit, &Dof::hyperfocalNearLimit},
    {"nearLimit", nearLimit, &Dof::dofNearLimit},
    {"farLimit", farLimit, &Dof::dofFarLimit},
    {"depthOfField", totalDof, &Dof::depthOfField},
    {"depthInFront", std::nullopt, &Dof::depthOfFieldInFront},
    {"depthBehind", std::nullopt, &Dof::depthOfFieldBehind}};

/// What an inverse calculation was asked for.
struct Question {
  DofField variable;
  const ResultOption<DofField>* given;
};

Role roleOf(DofField input, const std::optional<Question>& asked) {
  return asked && asked->variable == input ? Role::solved : Role::none;
}

CalculatorAnswer answerOf(const DofCalculator& calculator, CalculatorSession& session,
                          const AbstractCamera& camera, const std::optional<Question>& asked) {
  const CalculatorEnvironment environment = session.environment();
  const CameraValuesFormatter formatter = environment.formatter();
  const Dof& model = calculator.model();
  CalculatorAnswer answer(environment.units.currentUnits());
  answer.addCamera("camera", camera);
  addLens(answer, lensOf(model), environment.defaults, camera, roleOf(focalLength, asked));
  addAperture(answer, model.aperture(), roleOf(aperture, asked));
  answer.addInput(
      {"subjectDistance", calculatorText("subject_distance"),
       inMetres(model.subjectDistance(), formatter.formatDistance(model.subjectDistance())),
       roleOf(subjectDistance, asked)});
  const float coc = model.circleOfConfusion();
  answer.addInput({"circleOfConfusion", "Circle of confusion",
                   inMillimetres(coc, CameraValuesFormatter::formatCoC(coc * 1000))});
  const auto rows = calculator.results();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto& [key, field, value] = kResults[i];
    const bool isGiven = asked && field == asked->given->field;
    answer.addResult({key, rows[i].label(), inMetres((model.*value)(), rows[i].text),
                      isGiven ? Role::given : Role::none});
  }
  return answer;
}

class DofCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  void edit(DofCalculator& calculator, CalculatorSession& session,
            const AbstractCamera& camera) const;
  void solve(DofInverseCalculator& calculator, const Question& question, UnitSystem units) const;

  CLI::App* app_ = nullptr;
  DofTableCommand table_;
  CameraOption camera_;
  LensOptions lens_;
  TypedOption aperture_{"--aperture", "f/2.8"};
  TypedOption distance_{"--distance", "3m"};
  CocOptions coc_;
  ResultOptions<DofField> results_ = dofResults();
  SolveOption<DofField> solve_{
      {{"focal", focalLength}, {"aperture", aperture}, {"distance", subjectDistance}}};
  CalculatorOptions options_;
};

void DofCommand::addTo(CLI::App& program) {
  app_ = program.add_subcommand("dof", "Depth of field, and what gives the one you want");
  camera_.addTo(*app_, "The camera");
  lens_.addTo(*app_);
  aperture_.addTo(*app_, "Aperture; the nearest stop is taken");
  distance_.addTo(*app_, "Distance of the subject, on which the lens is focused");
  coc_.addTo(*app_);
  results_.addTo(*app_);
  solve_.addTo(*app_);
  options_.addTo(*app_);
  table_.addTo(*app_);
  app_->footer(
      "A value that is not given is that of the last call with --save, and so is what to solve\n"
      "for; where that is given, another input is solved for.\n"
      "\n"
      "Examples:\n"
      "  zenivo dof --focal 35mm --aperture f/8 --distance 3m\n"
      "  zenivo dof --focal 200mm --teleconverter 1.4x --distance \"33' 6\\\"\" --units imperial\n"
      "  zenivo dof --far 12m --solve aperture\n"
      "  zenivo dof --focal 24mm --aperture f/11 --far inf --solve distance --json\n"
      "  zenivo dof --print-width 60cm --print-height 40cm --viewing-distance 1m");
}

std::string DofCommand::run(const Terminal& terminal, const GoOn&) {
  if (table_.isChosen()) {
    expectNoOptions(*app_, "dof table");
    return table_.run(terminal);
  }
  CalculatorSession session;
  options_.applyTo(session);
  const AbstractCamera camera = camera_.applyTo(session);
  const CalculatorEnvironment environment = session.environment();
  coc_.applyTo(environment);
  DofCalculator forward(environment, coc_.form());
  forward.load();
  edit(forward, session, camera);
  const auto* given = results_.given();
  if (given == nullptr) {
    if (solve_.isGiven()) throw InputError("--solve needs a result, as --near, --far or --depth");
    options_.saveIfAsked(forward, session);
    return answerOf(forward, session, camera, std::nullopt).print(options_.wantsJson(), terminal);
  }
  forward.save();  // into the session, where the inverse calculator finds the inputs
  DofInverseCalculator inverse(environment, coc_.form());
  inverse.load();
  const Question asked{
      freeVariable<DofField>(
          solve_.variable(), inverse.freeVariable(),
          {{focalLength, &lens_.focal()}, {aperture, &aperture_}, {subjectDistance, &distance_}}),
      given};
  solve(inverse, asked, environment.units.currentUnits());
  options_.saveIfAsked(inverse, session);
  return answerOf(inverse, session, camera, asked).print(options_.wantsJson(), terminal);
}

void DofCommand::edit(DofCalculator& calculator, CalculatorSession& session,
                      const AbstractCamera& camera) const {
  const CalculatorEnvironment environment = session.environment();
  lens_.applyTo(calculator, lensOf(calculator.model()), environment.defaults, camera);
  if (const auto fstop = aperture_.read(CameraValuesParser::parseAperture)) {
    expectTaken(calculator.setAperture(environment.apertures.apertureForStop(*fstop)));
  }
  if (const auto metres = distance_.readPositive(CameraValuesParser::parseDistance,
                                                 environment.units.currentUnits())) {
    expectTaken(calculator.setSubjectDistance(*metres));
  }
}

void DofCommand::solve(DofInverseCalculator& calculator, const Question& question,
                       UnitSystem units) const {
  const auto& [field, option, description] = *question.given;
  calculator.setFreeVariable(question.variable);
  calculator.setActiveField(field);
  if (calculator.activeField() != field) solve_.refuseDistance(option.name());
  const auto metres = option.read(CameraValuesParser::parseDistance, units);
  expectTaken(calculator.setActiveFieldValue(*metres));
}

}  // namespace

std::unique_ptr<Command> makeDofCommand() {
  return std::make_unique<DofCommand>();
}

}  // namespace zenivo::cli
