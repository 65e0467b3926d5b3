// The commands of the stores, the catalogues and the settings.

#pragma once

#include <memory>

#include "commands/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeCamerasCommand();
std::unique_ptr<Command> makeCameraCommand();
std::unique_ptr<Command> makePoisCommand();
std::unique_ptr<Command> makeSettingsCommand();
std::unique_ptr<Command> makeOpenCommand();
std::unique_ptr<Command> makeStoreCommand();

}  // namespace zenivo::cli
