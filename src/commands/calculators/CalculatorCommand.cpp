#include "commands/calculators/CalculatorCommand.h"

#include <fmt/format.h>

#include "calculators/camera/CameraValuesFormatter.h"
#include "commands/common/Arguments.h"
#include "commands/common/Table.h"
#include "input/InputError.h"

namespace zenivo::cli {
namespace {

/// Options of a command belong behind the subcommand that follows.
void expectNoOptions(const CLI::App& command, const CLI::App& subcommand) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->count() == 0) continue;
    throw InputError(fmt::format("write {} behind \"{} {}\"", option->get_name(),
                                 command.get_name(), subcommand.get_name()));
  }
}

void addTo(Table& table, const ReadoutRow& row) {
  if (row.shown == Shown::inJsonOnly) return;
  std::string text = row.quantity.text;
  if (row.role == Role::given) text += " (as given)";
  if (row.role == Role::missed) text += " (not as asked for)";
  if (row.role == Role::solved) text += " (solved)";
  table.addRow({row.label, text}, row.role == Role::solved ? Style::heading : Style::plain);
}

}  // namespace

void CalculatorOptions::addTo(CLI::App& command, Lengths lengths, Kept kept) {
  if (lengths == Lengths::some) {
    command.add_option("--units", units_, "Read and write lengths as metric or imperial")
        ->type_name("UNITS")
        ->transform(oneOf({"metric", "imperial"}));
  }
  if (kept == Kept::values) {
    command.add_flag("--save", isSaved_, "Keep the values given for the next call");
  }
  command.add_flag("--json", wantsJson_, "Print JSON");
}

UnitSystem CalculatorOptions::applyTo(CalculatorSession& session) const {
  DistanceUnitsManager& units = session.environment().units;
  if (!units_.empty()) {
    units.setCurrentUnits(units_ == "imperial" ? UnitSystem::imperial : UnitSystem::metric);
  }
  return units.currentUnits();
}

void CommandWithSubcommand::addSubcommand(CLI::App& app, std::unique_ptr<Command> subcommand) {
  subcommand->addTo(app);
  subcommandApp_ = app.get_subcommands({}).back();
  subcommand_ = std::move(subcommand);
}

std::string CommandWithSubcommand::run(const Terminal& terminal, const GoOn& goOn) {
  if (!subcommand_ || !subcommandApp_->parsed()) return runItself(terminal);
  expectNoOptions(*subcommandApp_->get_parent(), *subcommandApp_);
  return subcommand_->run(terminal, goOn);
}

std::string textOf(const Readout& readout, const Terminal& terminal) {
  std::string text;
  for (const auto& [key, camera] : readout.cameras) text += cameraLine(camera, terminal);
  Table table({{""}, {""}});
  for (const ReadoutRow& row : readout.inputs) addTo(table, row);
  if (!readout.inputs.empty()) table.addRow({});
  if (!readout.resultsTitle.empty()) table.addRow({readout.resultsTitle}, Style::faint);
  for (const ReadoutRow& row : readout.results) addTo(table, row);
  text += table.text(terminal);
  for (const std::string& note : readout.notes) text += "\n" + note + "\n";
  return text;
}

std::string cameraLine(const AbstractCamera& camera, const Terminal& terminal) {
  const auto& [width, height] = camera.sensorSize;
  std::string line =
      styled(camera.modelString(), Style::heading, terminal) +
      fmt::format("  {} x {} mm{}, circle of confusion {}", width, height,
                  camera.isDigital ? "" : " film", CameraValuesFormatter::formatCoC(camera.coc));
  if (camera.isFixedFocalLength()) {
    line +=
        ", lens of " + CameraValuesFormatter::formatFocalLength(camera.fixedFocalLengthInMetres());
  }
  if (camera.isFixedAperture()) {
    line += (camera.isFixedFocalLength() ? " " : ", aperture ") +
            CameraValuesFormatter::formatAperture(camera.fixedAperture);
  }
  return line + "\n";
}

std::string ownCocLine(const AbstractCamera& camera, float coc) {
  if (coc == camera.coc) return "";
  return fmt::format("Circle of confusion {}\n", CameraValuesFormatter::formatCoC(coc));
}

}  // namespace zenivo::cli
