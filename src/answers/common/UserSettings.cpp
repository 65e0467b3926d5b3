#include "answers/common/UserSettings.h"

#include <stdexcept>
#include <string>

#include "app/settings/RegisteredDefaults.h"
#include "app/settings/SettingRange.h"
#include "app/settings/SettingsKeys.h"

namespace zenivo {
namespace {

PropertyList::Dictionary readFirstValues() {
  Error error;
  auto values = bundledDefaults(&error);
  if (!values) throw std::runtime_error("the first values cannot be read: " + error.description);
  return *std::move(values);
}

}  // namespace

UserSettings::UserSettings(UserDefaults& user) : user_(user), first_(readFirstValues()) {
  copy_.registerDefaults(first_);
  for (const std::string_view key : settings::kAllKeys) {
    auto value = user_.objectForKey(key);
    if (value && isReadableSetting(key, *value)) copy_.setObject(*std::move(value), key);
  }
}

std::optional<PropertyList> UserSettings::firstValue(std::string_view key) const {
  const auto found = first_.find(key);
  return found != first_.end() ? std::optional(found->second) : std::nullopt;
}

void UserSettings::save() {
  bool isChanged = false;
  for (const std::string_view key : settings::kAllKeys) {
    auto value = copy_.objectForKey(key);
    if (value == firstValue(key)) value.reset();
    if (value == user_.objectForKey(key)) continue;
    user_.setValue(std::move(value), key);
    isChanged = true;
  }
  Error error;
  if (isChanged && !user_.synchronize(&error)) throw std::runtime_error(error.description);
}

}  // namespace zenivo
