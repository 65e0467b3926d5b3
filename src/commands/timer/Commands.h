// The exposure timer.

#pragma once

#include <memory>

#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeTimerCommand();

}  // namespace zenivo::cli
