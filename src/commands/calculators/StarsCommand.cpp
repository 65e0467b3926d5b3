// zenivo stars: how long stars stay points; zenivo trails: how far they trail.

#include "answers/calculators/StarTimes.h"
#include "calculators/camera/CameraValuesParser.h"
#include "commands/calculators/CalculatorCommand.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/Options.h"

namespace zenivo::cli {
namespace {

class StarsCommand : public ReadoutCommand<StarsQuestion> {
 public:
  using ReadoutCommand::ReadoutCommand;
  void addTo(CLI::App& program) override;

 private:
  StarsQuestion question(UnitSystem /*units*/) const override {
    return {camera_.name(),
            lens_.question(),
            aperture_.read(CameraValuesParser::parseAperture),
            declination_.read(CameraValuesParser::parseAngle),
            accuracy_.value(),
            explains_};
  }

  CameraOption camera_;
  LensOptions lens_;
  TypedOption aperture_{"--aperture", "f/2.8"};
  TypedOption declination_{"--declination", "-12.5°"};
  WordOption<SpotStarsAccuracy> accuracy_{
      {{"default", SpotStarsAccuracy::standard}, {"accurate", SpotStarsAccuracy::accurate}}};
  bool explains_ = false;
};

void StarsCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("stars", "The longest exposure with stars as points");
  camera_.addTo(*app);
  lens_.addTo(*app);
  aperture_.addTo(*app, "Aperture; the nearest stop is taken");
  declination_.addTo(*app, "Lowest declination, north or south, of the stars in the frame");
  accuracy_.addTo(*app, "--accuracy", "default, or accurate for half the trail", "ACCURACY");
  app->add_flag("--explain", explains_, "Say what the rules, the accuracy and declination mean");
  options().addTo(*app, Lengths::none);
  app->footer(
      "By the NPF rule, from aperture, pixels and focal length, and by the rule of 500, the\n"
      "old rule of thumb.  Film has no pixels, and the NPF rule no limit for it.\n"
      "\n"
      "Examples:\n"
      "  zenivo stars --focal 20mm --aperture f/2.8\n"
      "  zenivo stars --camera \"Nikon D850\" --focal 14mm --declination -29 --accuracy accurate");
}

class TrailsCommand : public ReadoutCommand<TrailsQuestion> {
 public:
  using ReadoutCommand::ReadoutCommand;
  void addTo(CLI::App& program) override;

 private:
  TrailsQuestion question(UnitSystem /*units*/) const override {
    const auto seconds = time_.readPositive(CameraValuesParser::parseTimeDuration);
    return {seconds ? std::optional(static_cast<float>(*seconds)) : std::nullopt,
            angle_.readPositive(CameraValuesParser::parseAngle), hemisphere_.value()};
  }

  TypedOption time_{"--time", "30min"};
  TypedOption angle_{"--angle", "15°"};
  WordOption<bool> hemisphere_{{{"north", true}, {"south", false}}};
};

void TrailsCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("trails", "How far stars trail in a long exposure");
  CLI::Option* time = time_.addTo(*app, "Exposure time");
  angle_.addTo(*app, "Solve for the time in which the stars sweep this angle")->excludes(time);
  hemisphere_.addTo(*app, "--hemisphere", "The pole that the stars turn about", "HEMISPHERE");
  options().addTo(*app, Lengths::none);
  app->footer(
      "A value that is not given is that of the last call with --save.\n"
      "\n"
      "Examples:\n"
      "  zenivo trails --time 1h30min\n"
      "  zenivo trails --angle 30 --hemisphere south --json");
}

}  // namespace

std::unique_ptr<Command> makeStarsCommand(Home& home) {
  return std::make_unique<StarsCommand>(home);
}

std::unique_ptr<Command> makeTrailsCommand(Home& home) {
  return std::make_unique<TrailsCommand>(home);
}

}  // namespace zenivo::cli
