// The photographer's calculators.

#pragma once

#include <memory>

#include "answers/common/Home.h"
#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeDofCommand(Home& home);
std::unique_ptr<Command> makeHyperfocalCommand(Home& home);
std::unique_ptr<Command> makeFovCommand(Home& home);
std::unique_ptr<Command> makeMatchCommand(Home& home);
std::unique_ptr<Command> makeStarsCommand(Home& home);
std::unique_ptr<Command> makeTrailsCommand(Home& home);
std::unique_ptr<Command> makeExposureCommand(Home& home);
std::unique_ptr<Command> makeTimelapseCommand(Home& home);

}  // namespace zenivo::cli
