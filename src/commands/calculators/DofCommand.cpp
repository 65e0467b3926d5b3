// zenivo dof: what is sharp, and what makes it so; zenivo dof table: the same for many
// distances and stops.

#include <fmt/format.h>

#include <vector>

#include "answers/calculators/DepthOfField.h"
#include "answers/calculators/DepthTables.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"
#include "commands/calculators/CalculatorCommand.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/Options.h"
#include "commands/common/Table.h"

namespace zenivo::cli {
namespace {

class DofTableCommand : public CalculatorCommand<DofTableQuestion> {
 public:
  using CalculatorCommand::CalculatorCommand;
  void addTo(CLI::App& command) override;

 private:
  DofTableQuestion question(UnitSystem /*units*/) const override {
    return {camera_.name(), lens_.question(), stops_.question(), show_.value(),
            coc_.read(CameraValuesParser::parseCoC)};
  }
  std::string text(const DofTableReport& report, const Terminal& terminal) const override;

  CameraOption camera_;
  LensOptions lens_;
  StopsOptions stops_;
  WordOption<DofTableType> show_{
      {{"limits", DofTableType::nearFar}, {"depth", DofTableType::totalDof}}};
  TypedOption coc_{"--coc", "0.03mm"};
};

void DofTableCommand::addTo(CLI::App& command) {
  CLI::App* app = command.add_subcommand("table", "Depth of field for many distances and stops");
  camera_.addTo(*app);
  lens_.addTo(*app);
  stops_.addTo(*app);
  show_.addTo(*app, "--show", "The limits of what is sharp, or its depth", "WHAT");
  coc_.addTo(*app, "A circle of confusion of your own");
  options().addTo(*app);
  app->footer(
      "The lens of the table is its own, not that of zenivo dof.\n"
      "\n"
      "Examples:\n"
      "  zenivo dof table --focal 35mm\n"
      "  zenivo dof table --focal 85mm --aperture f/1.4,f/2,f/2.8 --show depth --units imperial");
}

std::string DofTableCommand::text(const DofTableReport& report, const Terminal& terminal) const {
  const CameraValuesFormatter formatter = report.setup.formatter();
  std::vector<Column> headings{{titleOf(report), Align::right}};
  for (const Aperture& stop : report.stops) {
    headings.push_back({CameraValuesFormatter::formatAperture(stop.fstop), Align::right});
  }
  Table table(headings);
  std::vector<std::string> first{calculatorText("dof_hyperfocal_distance")};
  for (const float metres : report.hyperfocals) {
    first.push_back(formatter.formatDistance(metres, false));
  }
  table.addRow(first, Style::heading);
  for (const auto& [distance, values] : report.rows) {
    std::vector<std::string> cells{formatter.formatDistance(distance, false)};
    for (const DofTable::Cell& cell : values) cells.push_back(cellText(report, cell));
    table.addRow(cells);
  }
  return cameraLine(report.setup.camera, terminal) + ownCocLine(report.setup.camera, report.coc) +
         fmt::format("{} {}\n\n", calculatorText("focal_length"), report.lens.totalText()) +
         table.text(terminal);
}

class DofCommand : public ReadoutCommand<DofQuestion> {
 public:
  using ReadoutCommand::ReadoutCommand;
  void addTo(CLI::App& program) override;

 private:
  DofQuestion question(UnitSystem units) const override;

  CameraOption camera_;
  LensOptions lens_;
  TypedOption aperture_{"--aperture", "f/2.8"};
  TypedOption distance_{"--distance", "3m"};
  CocOptions coc_;
  InverseOptions<DofField, DofField> inverse_{
      kDofInputWords,
      kDofResultWords,
      {{DofField::hyperfocal, "8m", "Solve for this hyperfocal distance"},
       {DofField::hyperfocalNearLimit, "4m", "Solve for half of it, its near limit"},
       {DofField::nearLimit, "2.5m", "Solve for this near limit"},
       {DofField::farLimit, "12m", "Solve for this far limit; inf for infinity"},
       {DofField::totalDof, "1m", "Solve for this depth of field"}}};
};

void DofCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("dof", "Depth of field, and what gives the one you want");
  camera_.addTo(*app);
  lens_.addTo(*app);
  aperture_.addTo(*app, "Aperture; the nearest stop is taken");
  distance_.addTo(*app, "Distance of the subject, on which the lens is focused");
  coc_.addTo(*app);
  inverse_.addTo(*app);
  options().addTo(*app);
  addSubcommand(*app, std::make_unique<DofTableCommand>(home()));
  app->footer(
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

DofQuestion DofCommand::question(UnitSystem units) const {
  const auto read = [units](DofField /*result*/, const TypedOption& option) {
    return option.read(CameraValuesParser::parseDistance, units);
  };
  return {camera_.name(),
          lens_.question(),
          aperture_.read(CameraValuesParser::parseAperture),
          distance_.readLength(units),
          coc_.question(units),
          inverse_.wanted(read, "--near, --far or --depth"),
          inverse_.solveFor(),
          options().isSaved()};
}

}  // namespace

std::unique_ptr<Command> makeDofCommand(Home& home) {
  return std::make_unique<DofCommand>(home);
}

}  // namespace zenivo::cli
