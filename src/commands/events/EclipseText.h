// An eclipse as people read it.

#pragma once

#include <string>

#include "answers/events/Eclipse.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

std::string eclipseText(const EclipseReport& report, const Terminal& terminal);

}  // namespace zenivo::cli
