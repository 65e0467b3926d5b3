#include "commands/calculators/Quantity.h"

#include <utility>

namespace zenivo::cli {

Json Quantity::json() const {
  return {{"value", value}, {"unit", unit.empty() ? Json(nullptr) : Json(unit)}, {"text", text}};
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

}  // namespace zenivo::cli
