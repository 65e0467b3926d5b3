// Whole files: read in one go, replaced in one go.

#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/Error.h"

namespace zenivo {

/// The bytes of a regular file, or nullopt with the reason in `error` when it is
/// missing, unreadable or longer than `limit` bytes.
std::optional<std::string> readFile(const std::filesystem::path& file, std::size_t limit,
                                    Error* error = nullptr);

/// Replaces the file by `bytes`, or makes it.  Whatever happens meanwhile, the
/// path names the old file or the new one, complete: the bytes go to a temporary
/// file in the same folder, reach the disk, and take the name in one step.  True
/// means that the new file survives a loss of power.  False leaves the old file
/// as it was and gives the reason in `error`.  The folder must exist; the file
/// keeps its permissions, a new one is private to the user.
bool writeFileAtomically(const std::filesystem::path& file, std::string_view bytes,
                         Error* error = nullptr);

}  // namespace zenivo
