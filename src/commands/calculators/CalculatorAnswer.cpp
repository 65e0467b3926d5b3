#include "commands/calculators/CalculatorAnswer.h"

#include <fmt/format.h>

#include "answers/common/CameraJson.h"
#include "calculators/camera/CameraValuesFormatter.h"
#include "commands/common/Table.h"

namespace zenivo::cli {
namespace {

Json membersOf(const std::vector<AnswerRow>& rows) {
  Json json = Json::object();
  for (const AnswerRow& row : rows) json[std::string(row.key)] = row.quantity.json();
  return json;
}

void addTo(Table& table, const AnswerRow& row) {
  if (row.shown == Shown::inJsonOnly) return;
  std::string text = row.quantity.text;
  if (row.role == Role::given) text += " (as given)";
  if (row.role == Role::solved) text += " (solved)";
  table.addRow({row.label, text}, row.role == Role::solved ? Style::heading : Style::plain);
}

}  // namespace

std::string_view nameOf(UnitSystem units) {
  return units == UnitSystem::imperial ? "imperial" : "metric";
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

void CalculatorAnswer::addCamera(std::string_view key, const AbstractCamera& camera) {
  cameras_.push_back({key, camera});
}

Json CalculatorAnswer::keyOf(Role role) const {
  for (const auto* rows : {&inputs_, &results_}) {
    for (const AnswerRow& row : *rows) {
      if (row.role == role) return row.key;
    }
  }
  return nullptr;
}

std::string CalculatorAnswer::json() const {
  Json json;
  for (const auto& [key, camera] : cameras_) json[std::string(key)] = cameraJson(camera);
  json["units"] = nameOf(units_);
  json["inputs"] = membersOf(inputs_);
  json["results"] = membersOf(results_);
  json["given"] = keyOf(Role::given);
  json["solved"] = keyOf(Role::solved);
  json["notes"] = notes_;
  return json.dump(2) + "\n";
}

std::string CalculatorAnswer::text(const Terminal& terminal) const {
  std::string text;
  for (const auto& [key, camera] : cameras_) text += cameraLine(camera, terminal);
  Table table({{""}, {""}});
  for (const AnswerRow& row : inputs_) addTo(table, row);
  if (!inputs_.empty()) table.addRow({});
  if (!resultsTitle_.empty()) table.addRow({resultsTitle_}, Style::faint);
  for (const AnswerRow& row : results_) addTo(table, row);
  text += table.text(terminal);
  for (const std::string& note : notes_) text += "\n" + note + "\n";
  return text;
}

}  // namespace zenivo::cli
