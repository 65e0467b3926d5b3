#include "commands/calculators/DofTableCommand.h"

#include <fmt/format.h>

#include <vector>

#include "answers/common/CameraJson.h"
#include "calculators/DofTable.h"
#include "calculators/camera/Texts.h"
#include "commands/common/Table.h"

namespace zenivo::cli {
namespace {

using Columns = std::vector<std::size_t>;

Json distanceJson(float metres) {
  return inMetres(metres, "").value;
}

Json jsonOf(DofTable& table, const AbstractCamera& camera, UnitSystem units,
            const Columns& columns) {
  Json apertures = Json::array();
  Json hyperfocals = Json::array();
  for (const std::size_t column : columns) {
    apertures.push_back(numberJson(static_cast<float>(table.stops()[column].fstop)));
    hyperfocals.push_back(distanceJson(table.hyperfocal(column)));
  }
  Json rows = Json::array();
  for (std::size_t row = 1; row < table.rowCount(); ++row) {
    Json cells = Json::array();
    for (const std::size_t column : columns) {
      const DofTable::Cell cell = table.cell(row, column);
      cells.push_back({{"near", distanceJson(cell.nearLimit)},
                       {"far", distanceJson(cell.farLimit)},
                       {"depth", distanceJson(cell.depthOfField)},
                       {"text", table.cellText(row, column)}});
    }
    rows.push_back({{"distance", distanceJson(table.subjectDistances()[row - 1])},
                    {"text", table.rowHeader(row)},
                    {"cells", std::move(cells)}});
  }
  const LensInput lens = table.lens();
  return {{"camera", cameraJson(camera)},
          {"units", nameOf(units)},
          {"focalLength", numberJson(lens.focalLength * 1000)},
          {"teleconverter", numberJson(lens.teleconverter())},
          {"show", table.tableType() == DofTableType::totalDof ? "depth" : "limits"},
          {"apertures", std::move(apertures)},
          {"hyperfocal", std::move(hyperfocals)},
          {"rows", std::move(rows)}};
}

std::string textOf(DofTable& table, const Columns& columns, const Terminal& terminal) {
  std::vector<Column> headings{{table.title(), Align::right}};
  for (const std::size_t column : columns) {
    headings.push_back({table.columnHeader(column), Align::right});
  }
  Table text(headings);
  for (std::size_t row = 0; row < table.rowCount(); ++row) {
    std::vector<std::string> cells{table.rowHeader(row)};
    for (const std::size_t column : columns) cells.push_back(table.cellText(row, column));
    text.addRow(cells, row == 0 ? Style::heading : Style::plain);
  }
  return text.text(terminal);
}

}  // namespace

void DofTableCommand::addTo(CLI::App& command) {
  CLI::App* app = command.add_subcommand("table", "Depth of field for many distances and stops");
  camera_.addTo(*app, "The camera");
  lens_.addTo(*app);
  columns_.addTo(*app);
  app->add_option("--show", show_, "The limits of what is sharp, or its depth")
      ->type_name("WHAT")
      ->check(CLI::IsMember({"limits", "depth"}));
  options_.addTo(*app);
  app->footer(
      "The lens of the table is its own, not that of zenivo dof.\n"
      "\n"
      "Examples:\n"
      "  zenivo dof table --focal 35mm\n"
      "  zenivo dof table --focal 85mm --aperture f/1.4,f/2,f/2.8 --show depth --units imperial");
  app_ = app;
}

std::string DofTableCommand::run(const Terminal& terminal) const {
  CalculatorSession session;
  options_.applyTo(session);
  const AbstractCamera camera = camera_.applyTo(session);
  DofTable table(session.environment());
  table.load();
  lens_.applyTo(table, table.lens(), session.settings(), camera);
  if (!show_.empty()) {
    table.setTableType(show_ == "depth" ? DofTableType::totalDof : DofTableType::nearFar);
  }
  const Columns columns = columns_.chosenFrom(table.stops());
  options_.saveIfAsked(table, session);
  if (options_.wantsJson()) {
    const UnitSystem units = session.environment().units.currentUnits();
    return jsonOf(table, camera, units, columns).dump(2) + "\n";
  }
  return cameraLine(camera, terminal) +
         fmt::format("{} {}\n\n", calculatorText("focal_length"), table.lens().totalText()) +
         textOf(table, columns, terminal);
}

}  // namespace zenivo::cli
