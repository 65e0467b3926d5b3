// The move of the settings to the place that the parts of the program share.

#pragma once

#include <filesystem>
#include <string>

#include "foundation/Error.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// Set in the shared settings once the older ones are there.
inline constexpr std::string_view zenivo_migrate_appgroups = "zenivo_migrate_appgroups";

/// The older settings in the user's folder.
inline constexpr const char* kStandardDefaultsName = "defaults.plist";
std::filesystem::path standardDefaultsFile();

/// Copies every key and value of the older settings into `settings`, marks that it is
/// done and synchronises.  Does nothing when it was done before; without a file there
/// is nothing to copy.  False with the reason in `error` when the file cannot be read
/// as settings, and then nothing is marked, or when synchronising failed.
bool migrateUserDefaultsIfNeccessary(UserDefaults& settings,
                                     const std::filesystem::path& standardDefaults,
                                     Error* error = nullptr);

}  // namespace zenivo
