// Where the user's own files lie.

#pragma once

#include <filesystem>

namespace zenivo {

/// The folder of the user's files: $ZENIVO_HOME, else $XDG_DATA_HOME/zenivo, else
/// ~/.local/share/zenivo.  It need not exist: whoever writes a first file there
/// makes it.
std::filesystem::path userFolder();

}  // namespace zenivo
