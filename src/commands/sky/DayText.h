// The day of light as tables.

#pragma once

#include <string>
#include <vector>

#include "answers/sky/Day.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

/// With a picture of `samples` unless they are empty.
std::string dayText(const DayReport& day, const std::vector<SkySample>& samples,
                    const Terminal& terminal);

}  // namespace zenivo::cli
