// What a calculator worked with and what came out, in the order in which it is read out.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "answers/common/Numbers.h"
#include "calculators/camera/AbstractCamera.h"
#include "calculators/camera/DistanceUnits.h"

namespace zenivo {

/// A value as it is answered: the number of its unit, and the text for people.
struct Quantity {
  Json value;             ///< null where there is no finite number
  std::string_view unit;  ///< empty for what has none
  std::string text;
};

/// {"value": …, "unit": text or null, "text": …}
Json json(const Quantity& quantity);

/// Null for an infinite distance, which is any below 0.
Quantity inMetres(float metres, std::string text);
Quantity inMillimetres(float metres, std::string text);
Quantity inDegrees(float degrees, std::string text);
Quantity inSeconds(float seconds, std::string text);
Quantity withoutUnit(float number, std::string text);
/// A value that is a text alone.
Quantity inWords(std::string text);

/// What a value was to an inverse calculation.
enum class Role {
  none,
  given,   ///< the result that was asked for
  missed,  ///< the same where no input gives it and this comes nearest
  solved,  ///< the input that follows from it
};

enum class Shown { everywhere, inJsonOnly };

struct ReadoutRow {
  std::string_view key;  ///< in JSON
  std::string label;     ///< in text
  Quantity quantity;
  Role role = Role::none;
  Shown shown = Shown::everywhere;
};

struct NamedCamera {
  std::string_view key;  ///< in JSON
  AbstractCamera camera;
};

struct Readout {
  UnitSystem units = UnitSystem::metric;
  std::vector<NamedCamera> cameras;
  std::vector<ReadoutRow> inputs;
  std::string resultsTitle;  ///< a line above the results; empty for none
  std::vector<ReadoutRow> results;
  std::vector<std::string> notes;  ///< sentences about the results
};

/// {camera…, "units", "inputs", "results", "given", "solved", "notes"}
Json json(const Readout& readout);

/// "metric" or "imperial"
std::string_view nameOf(UnitSystem units);

}  // namespace zenivo
