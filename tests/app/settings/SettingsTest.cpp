#include <gtest/gtest.h>

#include <set>

#include "app/settings/RegisteredDefaults.h"
#include "app/settings/SettingsKeys.h"
#include "foundation/Bundle.h"
#include "foundation/PropertyList.h"

namespace zenivo {
namespace {

TEST(Settings, FirstValuesBelongToRegisteredKeys) {
  std::string error;
  const auto defaults = readPropertyListFile(resourcePath("userDefaults.plist"), &error);
  ASSERT_TRUE(defaults && defaults->dictionary() != nullptr) << error;
  const std::set<std::string_view> keys(settings::kAllKeys.begin(), settings::kAllKeys.end());
  EXPECT_EQ(keys.size(), settings::kAllKeys.size()) << "a key stands twice";
  for (const auto& [key, value] : *defaults->dictionary()) EXPECT_TRUE(keys.contains(key)) << key;
}

TEST(Settings, FirstValuesAreReadButNotStored) {
  UserDefaults defaults;
  ASSERT_TRUE(registerBundledDefaults(defaults));
  EXPECT_EQ(defaults.integerForKey(settings::date_range_defaultRange), 4);
  defaults.setInteger(7, settings::date_range_defaultRange);
  defaults.removeObjectForKey(settings::date_range_defaultRange);
  EXPECT_EQ(defaults.integerForKey(settings::date_range_defaultRange), 4);
}

}  // namespace
}  // namespace zenivo
