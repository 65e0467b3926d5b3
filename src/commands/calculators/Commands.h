// The photographer's calculators.

#pragma once

#include <memory>

#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeDofCommand();
std::unique_ptr<Command> makeHyperfocalCommand();
std::unique_ptr<Command> makeFovCommand();
std::unique_ptr<Command> makeMatchCommand();
std::unique_ptr<Command> makeStarsCommand();
std::unique_ptr<Command> makeTrailsCommand();
std::unique_ptr<Command> makeExposureCommand();
std::unique_ptr<Command> makeTimelapseCommand();

}  // namespace zenivo::cli
