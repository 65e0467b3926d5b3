// Cameras by the names that people type.

#pragma once

#include <string_view>

#include "calculators/camera/AbstractCamera.h"
#include "data/cameras/DatabaseCameraStore.h"

namespace zenivo::cli {

/// The camera of that name, without regard to case, blanks and punctuation: one of the
/// user's, else a preset, by maker and model or by the model alone.  A part of a name will
/// do where no other camera has it.  Throws InputError, with suggestions, when none or
/// several are meant.
AbstractCamera findCamera(const DatabaseCameraStore& cameras, std::string_view name);

}  // namespace zenivo::cli
