#include "app/settings/RegisteredDefaults.h"

#include "foundation/Bundle.h"
#include "foundation/Failure.h"

namespace zenivo {

bool registerBundledDefaults(UserDefaults& settings, std::string* error) {
  const auto file = resourcePath("userDefaults.plist");
  const std::optional<PropertyList> defaults = readPropertyListFile(file, error);
  if (!defaults) return false;
  if (defaults->dictionary() == nullptr) return fail(error, file.string() + ": no dictionary");
  settings.registerDefaults(*defaults->dictionary());
  return true;
}

}  // namespace zenivo
