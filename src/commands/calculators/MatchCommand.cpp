// zenivo match: the lens with which a second camera sees what a first one does.

#include "answers/calculators/LensMatch.h"
#include "calculators/camera/CameraValuesParser.h"
#include "commands/calculators/CalculatorCommand.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/Options.h"

namespace zenivo::cli {
namespace {

class MatchCommand : public ReadoutCommand<MatchQuestion> {
 public:
  using ReadoutCommand::ReadoutCommand;
  void addTo(CLI::App& program) override;

 private:
  MatchQuestion question(UnitSystem units) const override {
    return {camera_.name(), camera2_.name(), lens_.question(),
            aperture_.read(CameraValuesParser::parseAperture), distance_.readLength(units)};
  }

  CameraOption camera_;
  CameraOption camera2_;
  LensOptions lens_;
  TypedOption aperture_{"--aperture", "f/2.8"};
  TypedOption distance_{"--distance", "3m"};
};

void MatchCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("match", "The equivalent lens of another camera");
  camera_.addTo(*app, "--camera", "The camera whose lens is known");
  camera2_.addTo(*app, "--to", "The camera to match");
  lens_.addTo(*app);
  aperture_.addTo(*app, "Aperture; the nearest stop is taken");
  distance_.addTo(*app, "Distance of the subject");
  options().addTo(*app);
  app->footer(
      "The aperture is the stop that comes nearest to the same depth of field.\n"
      "\n"
      "Examples:\n"
      "  zenivo match --to \"Fujifilm X-T4\" --focal 50mm --aperture f/4 --distance 5m\n"
      "  zenivo match --camera \"Canon EOS R\" --to \"Film 6x7\" --focal 35mm --json");
}

}  // namespace

std::unique_ptr<Command> makeMatchCommand(Home& home) {
  return std::make_unique<MatchCommand>(home);
}

}  // namespace zenivo::cli
