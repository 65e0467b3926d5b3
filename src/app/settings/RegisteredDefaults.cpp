#include "app/settings/RegisteredDefaults.h"

#include "foundation/Bundle.h"
#include "foundation/Error.h"

namespace zenivo {

std::optional<PropertyList::Dictionary> bundledDefaults(Error* error) {
  const auto file = resourcePath("userDefaults.plist");
  const std::optional<PropertyList> defaults = readPropertyListFile(file, error);
  if (!defaults) return std::nullopt;
  if (defaults->dictionary() != nullptr) return *defaults->dictionary();
  fail(error, {.description = file.string() + ": no dictionary"});
  return std::nullopt;
}

bool registerBundledDefaults(UserDefaults& settings, Error* error) {
  const auto defaults = bundledDefaults(error);
  if (defaults) settings.registerDefaults(*defaults);
  return defaults.has_value();
}

}  // namespace zenivo
