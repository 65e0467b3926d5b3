// The commands that search for what will happen.

#pragma once

#include <memory>

#include "answers/common/Home.h"
#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeFindCommand();
std::unique_ptr<Command> makeEclipseCommand(Home& home);
std::unique_ptr<Command> makeEclipsesCommand(Home& home);
std::unique_ptr<Command> makeMeteorsCommand();

}  // namespace zenivo::cli
