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
/// keeps its permissions, a new one is private to the user.  Through a symbolic link the file
/// that it leads to is replaced.
bool writeFileAtomically(const std::filesystem::path& file, std::string_view bytes,
                         Error* error = nullptr);

/// Where a symbolic link leads in the end, the file itself where it is none.  Whatever is
/// done to a file beside itself is done there.
std::filesystem::path symlinkTarget(std::filesystem::path file);

/// Removes what writings of the file left that were cut off half way.  Only for who holds
/// the file's lock: to others the temporary file of a writer looks the same.
void removeLeftovers(const std::filesystem::path& file);

/// Where a symbolic link leads in the end, the file itself where it is none.
std::filesystem::path symlinkTarget(std::filesystem::path file);

/// Removes what writings of the file left that were cut off half way.  Only for who holds
/// the file's lock: to others the temporary file of a writer looks the same.
void removeLeftovers(const std::filesystem::path& file);

/// A name beside the file that no file has: the file's own and the suffix, with a number
/// where there are several.
std::filesystem::path freeNameBeside(const std::filesystem::path& file, const char* suffix);

}  // namespace zenivo
