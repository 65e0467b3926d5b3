#include "answers/calculators/Readout.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "answers/common/CameraJson.h"

namespace zenivo {
namespace {

Json membersOf(const std::vector<ReadoutRow>& rows) {
  Json members = Json::object();
  for (const ReadoutRow& row : rows) members[std::string(row.key)] = json(row.quantity);
  return members;
}

/// Of the first row with one of the roles; null for none.
Json keyOf(const Readout& readout, std::initializer_list<Role> roles) {
  for (const auto* rows : {&readout.inputs, &readout.results}) {
    for (const ReadoutRow& row : *rows) {
      if (std::ranges::find(roles, row.role) != roles.end()) return row.key;
    }
  }
  return nullptr;
}

}  // namespace

Json json(const Quantity& quantity) {
  return {{"value", quantity.value},
          {"unit", quantity.unit.empty() ? Json(nullptr) : Json(quantity.unit)},
          {"text", quantity.text}};
}

Quantity inMetres(float metres, std::string text) {
  return {metres < 0 ? Json(nullptr) : numberJson(metres), "m", std::move(text)};
}

Quantity inMillimetres(float metres, std::string text) {
  return {numberJson(metres * 1000), "mm", std::move(text)};
}

Quantity inDegrees(float degrees, std::string text) {
  return {numberJson(degrees), "°", std::move(text)};
}

Quantity inSeconds(float seconds, std::string text) {
  return {numberJson(seconds), "s", std::move(text)};
}

Quantity withoutUnit(float number, std::string text) {
  return {numberJson(number), "", std::move(text)};
}

Quantity inWords(std::string text) {
  return {text, "", text};
}

Json json(const Readout& readout) {
  Json answer;
  for (const auto& [key, camera] : readout.cameras) answer[std::string(key)] = cameraJson(camera);
  answer["units"] = nameOf(readout.units);
  answer["inputs"] = membersOf(readout.inputs);
  answer["results"] = membersOf(readout.results);
  answer["given"] = keyOf(readout, {Role::given, Role::missed});
  answer["solved"] = keyOf(readout, {Role::solved});
  answer["notes"] = readout.notes;
  return answer;
}

std::string_view nameOf(UnitSystem units) {
  return units == UnitSystem::imperial ? "imperial" : "metric";
}

}  // namespace zenivo
