// Values of calculators as numbers and texts.

#pragma once

#include <string>
#include <string_view>

#include "answers/common/Numbers.h"

namespace zenivo::cli {

/// A value as it is answered: the number of its unit, and the text for people.
struct Quantity {
  Json value;             ///< null where there is no finite number
  std::string_view unit;  ///< empty for what has none
  std::string text;

  /// {"value": …, "unit": text or null, "text": …}
  Json json() const;
};

/// Null for an infinite distance, which is any below 0.
Quantity inMetres(float metres, std::string text);
Quantity inMillimetres(float metres, std::string text);
Quantity inDegrees(float degrees, std::string text);
Quantity inSeconds(float seconds, std::string text);
Quantity withoutUnit(float number, std::string text);

/// A value that is a text alone.
Quantity inWords(std::string text);

}  // namespace zenivo::cli
