#include "answers/common/Home.h"

#include <system_error>

#include "app/settings/SettingsMigration.h"
#include "foundation/Bundle.h"
#include "foundation/Log.h"

namespace zenivo {

UserDefaults& Home::zenivoUserDefaults() {
  if (settings_) return *settings_;
  settings_.emplace(folder_ / "settings.plist");
  const std::filesystem::path older = folder_ / kStandardDefaultsName;
  std::error_code ignored;
  Error error;
  if (std::filesystem::exists(older, ignored) &&
      !migrateUserDefaultsIfNeccessary(*settings_, older, &error)) {
    log(LogLevel::error, "The older settings are not taken over: " + error.description);
  }
  return *settings_;
}

Database& Home::database() {
  if (!database_) {
    database_.emplace(Database::Locations{.groupStore = folder_ / "Zenivo.sqlite",
                                          .staticStore = resourcePath("ZenivoStatic.sqlite")});
  }
  return *database_;
}

}  // namespace zenivo
