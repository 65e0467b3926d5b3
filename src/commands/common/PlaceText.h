// A place that stands beside that of the scene.

#pragma once

#include <string>

#include "place/ZVLocation.h"

namespace zenivo::cli {

/// The place that a text names: LAT,LON[,ALT_M], or a name.  Throws InputError for what
/// cannot be found; `option` ("--to") is named where the text is empty.
ZVLocation placeFrom(const std::string& text, const std::string& option);

}  // namespace zenivo::cli
