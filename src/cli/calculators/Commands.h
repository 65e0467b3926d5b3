// The commands that calculate for lens and camera.

#pragma once

#include <memory>

#include "cli/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeDofCommand();
std::unique_ptr<Command> makeHyperfocalCommand();
std::unique_ptr<Command> makeFovCommand();
std::unique_ptr<Command> makeMatchCommand();
std::unique_ptr<Command> makeStarsCommand();
std::unique_ptr<Command> makeTrailsCommand();

}  // namespace zenivo::cli
