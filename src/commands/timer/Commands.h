// The exposure timer.

#pragma once

#include <memory>

#include "answers/common/Home.h"
#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeTimerCommand(Home& home);

}  // namespace zenivo::cli
