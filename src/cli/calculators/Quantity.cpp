#include "cli/calculators/Quantity.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <utility>

namespace zenivo::cli {

Json Quantity::json() const {
  return {{"value", value}, {"unit", unit.empty() ? Json(nullptr) : Json(unit)}, {"text", text}};
}

Json jsonNumber(float value) {
  if (!std::isfinite(value)) return nullptr;
  const std::string shortest = fmt::format("{}", value);
  double number = 0;
  std::from_chars(shortest.data(), shortest.data() + shortest.size(), number);
  return number;
}

Quantity inMetres(float metres, std::string text) {
  return {metres < 0 ? Json(nullptr) : jsonNumber(metres), "m", std::move(text)};
}

Quantity inMillimetres(float metres, std::string text) {
  return {jsonNumber(metres * 1000), "mm", std::move(text)};
}

Quantity inDegrees(float degrees, std::string text) {
  return {jsonNumber(degrees), "°", std::move(text)};
}

Quantity inSeconds(float seconds, std::string text) {
  return {jsonNumber(seconds), "s", std::move(text)};
}

Quantity withoutUnit(float number, std::string text) {
  return {jsonNumber(number), "", std::move(text)};
}

Quantity inWords(std::string text) {
  return {text, "", text};
}

}  // namespace zenivo::cli
