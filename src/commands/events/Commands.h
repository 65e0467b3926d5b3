// The commands that search for what will happen.

#pragma once

#include <memory>

#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeFindCommand();
std::unique_ptr<Command> makeEclipseCommand();
std::unique_ptr<Command> makeEclipsesCommand();
std::unique_ptr<Command> makeMeteorsCommand();

}  // namespace zenivo::cli
