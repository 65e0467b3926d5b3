#include "app/settings/SettingsMigration.h"

#include <system_error>

#include "foundation/Error.h"
#include "foundation/PropertyList.h"
#include "foundation/UserFolder.h"

namespace zenivo {

std::filesystem::path standardDefaultsFile() {
  return userFolder() / kStandardDefaultsName;
}

bool migrateUserDefaultsIfNeccessary(UserDefaults& settings,
                                     const std::filesystem::path& standardDefaults, Error* error) {
  if (settings.boolForKey(zenivo_migrate_appgroups)) return true;
  std::error_code ignored;
  if (std::filesystem::exists(standardDefaults, ignored)) {
    const auto old = readPropertyListFile(standardDefaults, error);
    if (!old) return false;
    if (old->dictionary() == nullptr) {
      return fail(error, {.description = standardDefaults.string() + ": no dictionary"});
    }
    for (const auto& [key, value] : *old->dictionary()) settings.setObject(value, key);
  }
  settings.setBool(true, zenivo_migrate_appgroups);
  return settings.synchronize(error);
}

}  // namespace zenivo
