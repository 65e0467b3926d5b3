// zenivo exposure: the same light with other values and a filter; zenivo exposure values: how
// bright lights and scenes are.

#include <fmt/format.h>

#include "answers/calculators/EquivalentExposure.h"
#include "calculators/camera/CameraValuesParser.h"
#include "commands/calculators/CalculatorCommand.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/Options.h"
#include "commands/common/Table.h"

namespace zenivo::cli {
namespace {

class ExposureValuesCommand : public CalculatorCommand<LightTableQuestion> {
 public:
  using CalculatorCommand::CalculatorCommand;
  void addTo(CLI::App& command) override;

 private:
  LightTableQuestion question(UnitSystem /*units*/) const override { return {}; }
  std::string text(const LightTableReport& report, const Terminal& terminal) const override;
};

void ExposureValuesCommand::addTo(CLI::App& command) {
  CLI::App* app = command.add_subcommand("values", "Exposure values of lights and scenes");
  options().addTo(*app, Lengths::none, Kept::nothing);
  app->footer(
      "Each with the shutter speed at f/8 and ISO 100; of a range the middle is taken.  A light\n"
      "is chosen with zenivo exposure --light, by its number or its name.\n"
      "\n"
      "Examples:\n"
      "  zenivo exposure values\n"
      "  zenivo exposure values --json");
}

std::string ExposureValuesCommand::text(const LightTableReport& report,
                                        const Terminal& terminal) const {
  Table table({{"", Align::right}, {"light"}, {"EV"}, {"f/8, ISO 100", Align::right}});
  for (const auto& [title, lights] : report.sections) {
    if (!table.isEmpty()) table.addRow({});
    table.addRow({"", title}, Style::heading);
    for (const Light& light : lights) {
      table.addRow({std::to_string(light.number), light.row.lightConditionText(),
                    light.row.ev100Text(), shutterSpeedText(light)});
    }
  }
  return table.text(terminal);
}

/// The options of a photograph's values.
struct ShotOptions {
  TypedOption aperture;
  TypedOption shutter;
  TypedOption iso;

  ShotQuestion question() const {
    return {aperture.read(CameraValuesParser::parseAperture),
            shutter.read(CameraValuesParser::parseShutterSpeed),
            iso.read(CameraValuesParser::parseISO)};
  }
};

class ExposureCommand : public ReadoutCommand<ExposureQuestion> {
 public:
  using ReadoutCommand::ReadoutCommand;
  void addTo(CLI::App& program) override;

 private:
  ExposureQuestion question(UnitSystem units) const override;
  std::optional<FilterValue> filter() const;

  ShotOptions test_{{"--test-aperture", "f/8"}, {"--test-shutter", "1/125"}, {"--test-iso", "100"}};
  TextOption light_;
  ShotOptions shot_{{"--aperture", "f/8"}, {"--shutter", "30s"}, {"--iso", "100"}};
  TypedOption filter_{"--filter", "ND64"};
  SolveOption<ExposureField> solve_{kExposureWords};
};

void ExposureCommand::addTo(CLI::App& program) {
  CLI::App* app =
      program.add_subcommand("exposure", "The exposure that is equivalent to a test shot");
  CLI::Option* const testOptions[] = {
      test_.aperture.addTo(*app, "Aperture of the test shot; the nearest stop is taken"),
      test_.shutter.addTo(*app, "Its shutter speed"), test_.iso.addTo(*app, "Its ISO value")};
  CLI::Option* light =
      light_.addTo(*app, "--light",
                   "In place of a test shot: a light of zenivo exposure values, by its name or "
                   "number",
                   "LIGHT");
  for (CLI::Option* each : testOptions) light->excludes(each);
  shot_.aperture.addTo(*app, "Aperture; the nearest stop is taken");
  shot_.shutter.addTo(*app, "Shutter speed");
  shot_.iso.addTo(*app, "ISO value");
  filter_.addTo(
      *app, "Neutral density filter: a name or several (ND64+ND8), or stops as in \"6 1/3\"; none");
  solve_.addTo(*app);
  options().addTo(*app, Lengths::none);
  addSubcommand(*app, std::make_unique<ExposureValuesCommand>(home()));
  app->footer(
      "A value that is not given is that of the last call with --save.  Solved for is what\n"
      "--solve says, else what was solved for at last, or where that is given the first of\n"
      "aperture, shutter speed, ISO value and filter that is not.  Aperture and ISO value follow\n"
      "those of a test shot that is given.\n"
      "\n"
      "Examples:\n"
      "  zenivo exposure --test-shutter 1/60 --filter ND1000\n"
      "  zenivo exposure --test-aperture f/2.8 --test-shutter 15s --test-iso 6400 --shutter 4min "
      "--solve iso\n"
      "  zenivo exposure --test-shutter 1/125 --aperture f/8 --iso 100 --shutter 30s\n"
      "  zenivo exposure --light \"full moon\" --aperture f/11 --json");
}

std::optional<FilterValue> ExposureCommand::filter() const {
  constexpr float kMostStops = 25.75F;  // on the ladder of filters, with a fraction
  if (filter_.isGiven() && CameraValuesParser::mayBeDensity(filter_.text())) {
    throw InputError(fmt::format(
        "--filter {0} may be stops or a density; write \"{0} stops\" or ND{0}", filter_.text()));
  }
  const auto value = filter_.read(CameraValuesParser::parseFilter);
  if (value && value->stops + value->fraction > kMostStops) filter_.refuseTooLarge("25 3/4 stops");
  return value;
}

ExposureQuestion ExposureCommand::question(UnitSystem /*units*/) const {
  return {test_.question(), light_.text(), shot_.question(), filter(), solve_.value()};
}

}  // namespace

std::unique_ptr<Command> makeExposureCommand(Home& home) {
  return std::make_unique<ExposureCommand>(home);
}

}  // namespace zenivo::cli
