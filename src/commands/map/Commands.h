// The commands of the map: lines, pins and the horizon.

#pragma once

#include <memory>

#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeLineCommand();
std::unique_ptr<Command> makePinCommand();
std::unique_ptr<Command> makeHorizonCommand();

}  // namespace zenivo::cli
