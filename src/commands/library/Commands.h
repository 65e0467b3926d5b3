// The commands of the stores, the catalogues and the settings.

#pragma once

#include <memory>

#include "answers/common/Home.h"
#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeCamerasCommand(Home& home);
std::unique_ptr<Command> makeCameraCommand(Home& home);
std::unique_ptr<Command> makePoisCommand(Home& home);
std::unique_ptr<Command> makeSettingsCommand(Home& home);
std::unique_ptr<Command> makeOpenCommand(Home& home);
std::unique_ptr<Command> makeStoreCommand(Home& home);

}  // namespace zenivo::cli
