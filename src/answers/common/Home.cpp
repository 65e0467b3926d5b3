#include "answers/common/Home.h"

#include "foundation/Bundle.h"

namespace zenivo {

UserDefaults& Home::zenivoUserDefaults() {
  if (!settings_) settings_.emplace(folder_ / "settings.plist");
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
