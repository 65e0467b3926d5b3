// zenivo hyperfocal: hyperfocal distances for many focal lengths and apertures.

#include <vector>

#include "answers/calculators/DepthTables.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"
#include "commands/calculators/CalculatorCommand.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/Options.h"
#include "commands/common/Table.h"

namespace zenivo::cli {
namespace {

class HyperfocalCommand : public CalculatorCommand<HyperfocalQuestion> {
 public:
  using CalculatorCommand::CalculatorCommand;
  void addTo(CLI::App& program) override;

 private:
  HyperfocalQuestion question(UnitSystem /*units*/) const override {
    return {camera_.name(), focalLengths_.read(CameraValuesParser::parseFocalLength),
            stops_.question(), coc_.read(CameraValuesParser::parseCoC)};
  }
  std::string text(const HyperfocalReport& report, const Terminal& terminal) const override;

  CameraOption camera_;
  ListOption focalLengths_{"--focal", "24mm,35mm"};
  StopsOptions stops_;
  TypedOption coc_{"--coc", "0.03mm"};
};

void HyperfocalCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("hyperfocal", "Hyperfocal distances for many lenses");
  camera_.addTo(*app);
  focalLengths_.addTo(*app, "Focal lengths to show (default: those of usual lenses)", "24mm,35mm");
  stops_.addTo(*app);
  coc_.addTo(*app, "A circle of confusion of your own");
  options().addTo(*app);
  app->footer(
      "Focused at the hyperfocal distance, all is sharp from half of it to infinity.\n"
      "\n"
      "Examples:\n"
      "  zenivo hyperfocal\n"
      "  zenivo hyperfocal --focal 24mm,35mm,50mm --aperture f/8,f/11 --units imperial\n"
      "  zenivo hyperfocal --camera \"Canon EOS 5D Mark IV\" --all --json");
}

std::string HyperfocalCommand::text(const HyperfocalReport& report,
                                    const Terminal& terminal) const {
  const CameraValuesFormatter formatter = report.setup.formatter();
  std::vector<Column> headings{{calculatorText("focal_length"), Align::right}};
  for (const Aperture& stop : report.stops) {
    headings.push_back({CameraValuesFormatter::formatAperture(stop.fstop), Align::right});
  }
  Table table(headings);
  for (const auto& [focalLength, hyperfocals] : report.rows) {
    std::vector<std::string> cells{CameraValuesFormatter::formatFocalLength(focalLength)};
    for (const float metres : hyperfocals) cells.push_back(formatter.formatDistance(metres));
    table.addRow(cells);
  }
  return cameraLine(report.setup.camera, terminal) + ownCocLine(report.setup.camera, report.coc) +
         "\n" + table.text(terminal);
}

}  // namespace

std::unique_ptr<Command> makeHyperfocalCommand(Home& home) {
  return std::make_unique<HyperfocalCommand>(home);
}

}  // namespace zenivo::cli
