// Mutual exclusion between processes.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "foundation/FileDescriptor.h"

namespace zenivo {

/// Waits for the exclusive lock on a lock file, which is made where missing, and
/// holds it until the result is destroyed or the process ends, however it ends.
/// Excludes other holders in this process too.  Nullopt with the reason in
/// `error` when the file cannot be opened.
std::optional<FileDescriptor> lockFileExclusively(const std::filesystem::path& file,
                                                  std::string* error = nullptr);

}  // namespace zenivo
