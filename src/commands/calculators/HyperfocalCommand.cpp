// zenivo hyperfocal: hyperfocal distances for many focal lengths and apertures.

#include <fmt/format.h>

#include <cmath>
#include <set>
#include <vector>

#include "answers/common/CameraJson.h"
#include "calculators/HyperfocalTable.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "calculators/camera/CameraValuesParser.h"
#include "calculators/camera/Texts.h"
#include "commands/calculators/CalculatorAnswer.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/CameraOption.h"
#include "commands/calculators/Commands.h"
#include "commands/calculators/StopColumns.h"
#include "commands/common/Table.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

using Places = std::vector<std::size_t>;

class HyperfocalCommand : public Command {
 public:
  void addTo(CLI::App& program) override;
  std::string run(const Terminal& terminal, const GoOn&) override;

 private:
  Places chosenRows(const std::vector<float>& focalLengths) const;

  CameraOption camera_;
  std::vector<std::string> focalLengths_;
  StopColumns columns_;
  CalculatorOptions options_;
};

void HyperfocalCommand::addTo(CLI::App& program) {
  CLI::App* app = program.add_subcommand("hyperfocal", "Hyperfocal distances for many lenses");
  camera_.addTo(*app, "The camera");
  app->add_option("--focal", focalLengths_, "Focal lengths to show (default: all)")
      ->delimiter(',')
      ->expected(1, CLI::detail::expected_max_vector_size)
      ->type_name("24mm,35mm");
  columns_.addTo(*app);
  options_.addTo(*app);
  app->footer(
      "Focused at the hyperfocal distance, all is sharp from half of it to infinity.\n"
      "\n"
      "Examples:\n"
      "  zenivo hyperfocal\n"
      "  zenivo hyperfocal --focal 24mm,35mm,50mm --aperture f/8,f/11 --units imperial\n"
      "  zenivo hyperfocal --camera \"Canon EOS 5D Mark IV\" --all --json");
}

/// The rows of the focal lengths given, ascending; all rows for none.
Places HyperfocalCommand::chosenRows(const std::vector<float>& focalLengths) const {
  constexpr float kTolerance = 0.00005F;
  std::set<std::size_t> chosen;
  for (std::size_t i = 0; i < focalLengths.size() && focalLengths_.empty(); ++i) chosen.insert(i);
  for (const std::string& text : focalLengths_) {
    const auto metres = CameraValuesParser::parseFocalLength(text);
    if (!metres) {
      throw InputError(
          fmt::format("--focal cannot be {}; write it as in 24mm,35mm", inQuotes(text)));
    }
    const auto found = std::ranges::find_if(
        focalLengths, [&](float each) { return std::abs(each - *metres) < kTolerance; });
    if (found == focalLengths.end()) {
      throw InputError(fmt::format("{} is not in the table; see zenivo dof --focal",
                                   CameraValuesFormatter::formatFocalLength(*metres)));
    }
    chosen.insert(static_cast<std::size_t>(found - focalLengths.begin()));
  }
  return {chosen.begin(), chosen.end()};
}

Json jsonOf(HyperfocalTable& table, const Places& rows, const Places& columns) {
  Json json = Json::array();
  for (const std::size_t row : rows) {
    Json cells = Json::array();
    for (const std::size_t column : columns) {
      cells.push_back(inMetres(table.hyperfocal(row, column), table.cellText(row, column)).json());
    }
    json.push_back({{"focalLength", numberJson(table.focalLengths()[row] * 1000)},
                    {"text", table.rowHeader(row)},
                    {"cells", std::move(cells)}});
  }
  return json;
}

std::string textOf(HyperfocalTable& table, const Places& rows, const Places& columns,
                   const Terminal& terminal) {
  std::vector<Column> headings{{calculatorText("focal_length"), Align::right}};
  for (const std::size_t column : columns) {
    headings.push_back({table.columnHeader(column), Align::right});
  }
  Table text(headings);
  for (const std::size_t row : rows) {
    std::vector<std::string> cells{table.rowHeader(row)};
    for (const std::size_t column : columns) cells.push_back(table.cellText(row, column));
    text.addRow(cells);
  }
  return text.text(terminal);
}

std::string HyperfocalCommand::run(const Terminal& terminal, const GoOn&) {
  CalculatorSession session;
  options_.applyTo(session);
  const AbstractCamera camera = camera_.applyTo(session);
  HyperfocalTable table(session.environment());
  table.load();
  const Places rows = chosenRows(table.focalLengths());
  const Places columns = columns_.chosenFrom(table.stops());
  options_.saveIfAsked(table, session);
  if (!options_.wantsJson()) {
    return cameraLine(camera, terminal) + "\n" + textOf(table, rows, columns, terminal);
  }
  Json apertures = Json::array();
  for (const std::size_t column : columns) {
    apertures.push_back(numberJson(static_cast<float>(table.stops()[column].fstop)));
  }
  return Json{{"camera", cameraJson(camera)},
              {"units", nameOf(session.environment().units.currentUnits())},
              {"apertures", std::move(apertures)},
              {"rows", jsonOf(table, rows, columns)}}
             .dump(2) +
         "\n";
}

}  // namespace

std::unique_ptr<Command> makeHyperfocalCommand() {
  return std::make_unique<HyperfocalCommand>();
}

}  // namespace zenivo::cli
