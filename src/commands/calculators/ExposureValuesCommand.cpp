#include "commands/calculators/ExposureValuesCommand.h"

#include <fmt/format.h>

#include "answers/common/CalculatorSession.h"
#include "calculators/ExposureCalculator.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "commands/calculators/CalculatorOptions.h"
#include "commands/calculators/Quantity.h"
#include "commands/calculators/RowFinder.h"
#include "commands/common/Table.h"

namespace zenivo::cli {
namespace {

/// A row with the test shot that it stands for.
struct Light {
  std::size_t number;
  ExposureValueRow row;
  Exposure shot;
};

struct LightSection {
  std::string title;
  std::vector<Light> lights;
};

std::vector<LightSection> lightSections() {
  CalculatorSession session;
  ExposureCalculator calculator(session.environment());
  calculator.load();
  std::vector<LightSection> sections;
  std::size_t number = 0;
  for (const ExposureValueSection& section : exposureValueSections()) {
    sections.push_back({section.titleText(), {}});
    for (const ExposureValueRow& row : section.rows) {
      expectTaken(calculator.selectRow(row));
      sections.back().lights.push_back({++number, row, calculator.testExposureModel()});
    }
  }
  return sections;
}

std::string shotText(const Exposure& shot) {
  return CameraValuesFormatter::formatShutterSpeed(shot.shutterSpeed());
}

Json lightJson(const Light& light) {
  return {{"number", light.number},
          {"key", light.row.lightCondition},
          {"light", light.row.lightConditionText()},
          {"ev100", light.row.ev100Text()},
          {"exposureValue", getEVValue(light.row.ev100)},
          {"aperture", numberJson(static_cast<float>(light.shot.aperture().fstop))},
          {"iso", numberJson(light.shot.iso())},
          {"shutterSpeed", inSeconds(light.shot.shutterSpeed(), shotText(light.shot)).json()}};
}

}  // namespace

void ExposureValuesCommand::addTo(CLI::App& command) {
  CLI::App* app = command.add_subcommand("values", "Exposure values of lights and scenes");
  app->add_flag("--json", wantsJson_, "Print JSON");
  app->footer(
      "Each with the shutter speed at f/8 and ISO 100; of a range the middle is taken.  A light\n"
      "is chosen with zenivo exposure --light, by its number or its name.\n"
      "\n"
      "Examples:\n"
      "  zenivo exposure values\n"
      "  zenivo exposure values --json");
  app_ = app;
}

std::string ExposureValuesCommand::run(const Terminal& terminal) const {
  Json json = Json::array();
  Table table({{"", Align::right}, {"light"}, {"EV"}, {"f/8, ISO 100", Align::right}});
  for (const LightSection& section : lightSections()) {
    Json lights = Json::array();
    if (!table.isEmpty()) table.addRow({});
    table.addRow({"", section.title}, Style::heading);
    for (const Light& light : section.lights) {
      lights.push_back(lightJson(light));
      table.addRow({std::to_string(light.number), light.row.lightConditionText(),
                    light.row.ev100Text(), shotText(light.shot)});
    }
    json.push_back({{"title", section.title}, {"lights", std::move(lights)}});
  }
  return wantsJson_ ? Json{{"sections", std::move(json)}}.dump(2) + "\n" : table.text(terminal);
}

ExposureValueRow findLight(std::string_view typed) {
  std::vector<ExposureValueRow> rows;
  std::vector<std::string> names;
  for (const ExposureValueSection& section : exposureValueSections()) {
    for (const ExposureValueRow& row : section.rows) {
      rows.push_back(row);
      names.push_back(row.lightConditionText());
    }
  }
  return rows[findRow(names, typed, "zenivo exposure values")];
}

}  // namespace zenivo::cli
