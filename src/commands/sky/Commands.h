// The commands that tell what stands in the sky.

#pragma once

#include <memory>

#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeSkyCommand();
std::unique_ptr<Command> makeDayCommand();
std::unique_ptr<Command> makePathCommand();
std::unique_ptr<Command> makeMonthCommand();
std::unique_ptr<Command> makeMoonCommand();
std::unique_ptr<Command> makeNextPhaseCommand();
std::unique_ptr<Command> makeNextDarkNightCommand();
std::unique_ptr<Command> makeNextMilkyWayCommand();

}  // namespace zenivo::cli
