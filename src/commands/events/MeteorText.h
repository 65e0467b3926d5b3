// The answers about meteors as people read them.

#pragma once

#include <string>

#include "answers/events/Meteors.h"
#include "commands/common/Terminal.h"

namespace zenivo::cli {

std::string activeShowersText(const ActiveShowersReport& report, const Terminal& terminal);
std::string showerText(const ShowerReport& report, const Terminal& terminal);
std::string showerCalendarText(const ShowerCalendarReport& report, const Terminal& terminal);

}  // namespace zenivo::cli
