// zenivo fov: what a lens sees, and what makes it see so; zenivo fov distance: how far away an
// object fits into the frame.

#include "answers/calculators/FieldOfView.h"
#include "calculators/camera/CameraValuesParser.h"
#include "commands/calculators/CalculatorCommand.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/Options.h"

namespace zenivo::cli {
namespace {

class FovDistanceCommand : public ReadoutCommand<FovDistanceQuestion> {
 public:
  using ReadoutCommand::ReadoutCommand;
  void addTo(CLI::App& command) override;

 private:
  FovDistanceQuestion question(UnitSystem units) const override {
    return {camera_.name(), lens_.question(), width_.readLength(units), height_.readLength(units),
            orientation_.isPortrait()};
  }

  CameraOption camera_;
  LensOptions lens_;
  TypedOption width_{"--width", "2m"};
  TypedOption height_{"--height", "1.8m"};
  OrientationOption orientation_;
};

void FovDistanceCommand::addTo(CLI::App& command) {
  CLI::App* app = command.add_subcommand("distance", "How far away an object fits into the frame");
  camera_.addTo(*app);
  lens_.addTo(*app);
  width_.addTo(*app, "Width of the object");
  height_.addTo(*app, "Height of the object");
  orientation_.addTo(*app);
  options().addTo(*app);
  app->footer(
      "A value that is not given is that of the last call with --save.\n"
      "\n"
      "Examples:\n"
      "  zenivo fov distance --width 2m --height 1.8m --focal 85mm\n"
      "  zenivo fov distance --height 324m --width 125m --focal 24mm --portrait --json");
}

class FovCommand : public ReadoutCommand<FovQuestion> {
 public:
  using ReadoutCommand::ReadoutCommand;
  void addTo(CLI::App& program) override;

 private:
  FovQuestion question(UnitSystem units) const override;

  CameraOption camera_;
  LensOptions lens_;
  TypedOption distance_{"--distance", "10m"};
  OrientationOption orientation_;
  InverseOptions<FovFreeVariable, FovField> inverse_{
      kFovInputWords,
      kFovResultWords,
      {{FovField::horizontalAov, "40°", "Solve for this horizontal angle of view"},
       {FovField::verticalAov, "27°", "Solve for this vertical angle of view"},
       {FovField::diagonalAov, "46.8°", "Solve for this diagonal angle of view"},
       {FovField::horizontalFov, "7m", "Solve for this width of the scene"},
       {FovField::verticalFov, "5m", "Solve for this height of the scene"},
       {FovField::diagonalFov, "9m", "Solve for this diagonal of the scene"}}};
};

void FovCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("fov", "Field of view, and what gives the one you want");
  camera_.addTo(*app);
  lens_.addTo(*app);
  distance_.addTo(*app, "Distance of the subject");
  orientation_.addTo(*app);
  inverse_.addTo(*app);
  options().addTo(*app);
  addSubcommand(*app, std::make_unique<FovDistanceCommand>(home()));
  app->footer(
      "Angles are those of a lens focused at infinity.  A value that is not given is that of\n"
      "the last call with --save.\n"
      "\n"
      "Examples:\n"
      "  zenivo fov --focal 50mm --distance 10m\n"
      "  zenivo fov --focal 24mm --portrait --units imperial --json\n"
      "  zenivo fov --horizontal-angle 84 --solve focal\n"
      "  zenivo fov --width 7m --focal 85mm --solve distance");
}

FovQuestion FovCommand::question(UnitSystem units) const {
  const auto read = [units](FovField result, const TypedOption& option) {
    return isAngle(result) ? option.read(CameraValuesParser::parseAngle)
                           : option.read(CameraValuesParser::parseDistance, units);
  };
  return {camera_.name(),
          lens_.question(),
          distance_.readLength(units),
          orientation_.isPortrait(),
          inverse_.wanted(read, "--width or --diagonal-angle"),
          inverse_.solveFor()};
}

}  // namespace

std::unique_ptr<Command> makeFovCommand(Home& home) {
  return std::make_unique<FovCommand>(home);
}

}  // namespace zenivo::cli
