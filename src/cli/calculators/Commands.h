// The photographer's calculators and the exposure timer.

#pragma once

#include <memory>

#include "cli/common/Command.h"

namespace zenivo::cli {

std::unique_ptr<Command> makeExposureCommand();
std::unique_ptr<Command> makeTimelapseCommand();
std::unique_ptr<Command> makeTimerCommand();

}  // namespace zenivo::cli
