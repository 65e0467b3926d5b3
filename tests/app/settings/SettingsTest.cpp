#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>

#include "app/settings/RegisteredDefaults.h"
#include "app/settings/SettingRange.h"
#include "app/settings/SettingType.h"
#include "app/settings/SettingsKeys.h"
#include "app/settings/SettingsMigration.h"
#include "support/TemporaryFolder.h"

namespace zenivo {
namespace {

PropertyList::Dictionary firstValues() {
  Error error;
  auto defaults = bundledDefaults(&error);
  EXPECT_TRUE(defaults) << error.description;
  return defaults.value_or(PropertyList::Dictionary());
}

TEST(Settings, EveryKeyHasAFirstValueOrATypeOfItsOwn) {
  const auto defaults = firstValues();
  const std::set<std::string_view> keys(settings::kAllKeys.begin(), settings::kAllKeys.end());
  EXPECT_EQ(keys.size(), settings::kAllKeys.size()) << "a key stands twice";
  for (const auto& [key, value] : defaults) EXPECT_TRUE(keys.contains(key)) << key;
  for (const auto key : keys) EXPECT_TRUE(settingType(key, defaults)) << key;
  EXPECT_FALSE(settingType("zenivo_nonsense", defaults));
}

// What has no value yet must read as such: a session takes "now" without a date and
// is at its first launch without an observer, layers are set up or converted from the
// old toggles, a camera is chosen, and nobody has been asked anything.
TEST(Settings, AbsenceThatMeansSomethingStaysAbsent) {
  UserDefaults defaults;
  ASSERT_TRUE(registerBundledDefaults(defaults));
  for (const auto key :
       {settings::planner_observer, settings::planner_date, settings::planner_timezone,
        settings::planner_sunLayerState, settings::planner_sunMoonToggle,
        settings::planner_milkyWayToggle, settings::planner_plan_to_load, settings::global_camera,
        settings::global_camera_model, settings::drone_camera,
        settings::equivalentFocalLength_Camera2, settings::global_analytics_opt_out,
        settings::sync_manager_cloud_service, settings::timer_is_running,
        settings::pois_mapPOILat}) {
    EXPECT_FALSE(defaults.objectForKey(key)) << key;
  }
}

// Where zero would read as a place or a lens, the first value is another.
TEST(Settings, FirstValuesAreUsable) {
  UserDefaults defaults;
  ASSERT_TRUE(registerBundledDefaults(defaults));
  EXPECT_EQ(defaults.doubleForKey(settings::planner_obstacleLatitude), -180) << "no black pin";
  for (const auto key : settings::kAllKeys) {
    const std::string_view name = key;
    const bool isFocalLength = name.ends_with("ocalLength") && !name.starts_with("equivalent") &&
                               !name.starts_with("global");
    if (!isFocalLength) continue;
    EXPECT_GE(defaults.floatForKey(key), 0.007F) << key << " is in metres";
    EXPECT_LE(defaults.floatForKey(key), 1.0F) << key << " is in metres";
  }
}

TEST(Settings, FirstValuesAreInTheirRange) {
  int bounded = 0;
  for (const auto& [key, value] : firstValues()) {
    EXPECT_TRUE(isInSettingRange(key, value)) << key;
    if (settingRangeText(key).empty()) continue;
    ++bounded;
    EXPECT_FALSE(isInSettingRange(key, PropertyList("9"))) << key << ": a text";
    EXPECT_FALSE(isReadableSetting(key, PropertyList(-181.0))) << key;
  }
  EXPECT_GT(bounded, 70);
  EXPECT_TRUE(isInSettingRange(settings::dof_selectedPage, PropertyList(29))) << "no choice";
  EXPECT_FALSE(isInSettingRange(settings::dof_focalLength, PropertyList(0.0)));
  EXPECT_TRUE(isReadableSetting(settings::dof_focalLength, PropertyList(0.0))) << "unset";
}

TEST(Settings, FirstValuesAreReadButNotStored) {
  UserDefaults defaults;
  ASSERT_TRUE(registerBundledDefaults(defaults));
  EXPECT_EQ(defaults.integerForKey(settings::date_range_defaultRange), 4);
  defaults.setInteger(7, settings::date_range_defaultRange);
  defaults.removeObjectForKey(settings::date_range_defaultRange);
  EXPECT_EQ(defaults.integerForKey(settings::date_range_defaultRange), 4);
}

TEST(Settings, TextsAreReadByTypeAndWrittenBack) {
  const struct {
    SettingType type;
    const char* text;
    std::optional<PropertyList> value;
  } cases[] = {
      {SettingType::boolean, "true", true},
      {SettingType::boolean, "off", false},
      {SettingType::boolean, "2", std::nullopt},
      {SettingType::integer, "-3", -3},
      {SettingType::integer, "1.5", std::nullopt},
      {SettingType::integer, "1 ", std::nullopt},
      {SettingType::integer, "99999999999999999999", std::nullopt},
      {SettingType::real, "0.05", 0.05},
      {SettingType::real, "8", 8.0},
      {SettingType::real, "inf", std::nullopt},
      {SettingType::real, "nan", std::nullopt},
      {SettingType::real, "0,05", std::nullopt},
      {SettingType::real, "", std::nullopt},
      {SettingType::text, "", ""},
      {SettingType::text, "Κάμερα 1", "Κάμερα 1"},
      {SettingType::date, "2001-01-01T00:01:00Z", Date::withTimeIntervalSinceReferenceDate(60)},
      {SettingType::date, "tomorrow", std::nullopt},
      {SettingType::camera, "1204", 1204},
      {SettingType::camera, "Pinhole 4x5", "Pinhole 4x5"},
      {SettingType::archive, "x", std::nullopt},
  };
  for (const auto& c : cases) {
    Error error;
    const auto value = settingFromText(c.type, c.text, &error);
    EXPECT_EQ(value, c.value) << c.text;
    EXPECT_EQ(error.description.empty(), value.has_value()) << c.text;
    if (!value) continue;
    EXPECT_EQ(settingFromText(c.type, textOfSetting(*value)), value) << c.text;
  }
}

class SettingsMigrationTest : public testing::Test {
 protected:
  std::filesystem::path old() const { return folder_ / "defaults.plist"; }
  std::filesystem::path shared() const { return folder_ / "settings.plist"; }
  TemporaryFolder folder_;
};

TEST_F(SettingsMigrationTest, OlderSettingsAreTakenOverOnce) {
  ASSERT_TRUE(writePropertyListFile(
      old(), PropertyList::Dictionary{{"global_units", 1}, {"awards_name", "Ansel"}}));
  {
    UserDefaults settings(shared());
    settings.setInteger(0, settings::global_units);
    ASSERT_TRUE(migrateUserDefaultsIfNeccessary(settings, old()));
  }
  UserDefaults settings(shared());
  EXPECT_EQ(settings.integerForKey(settings::global_units), 1);
  EXPECT_EQ(settings.stringForKey(settings::awards_name), "Ansel");
  settings.setInteger(0, settings::global_units);
  ASSERT_TRUE(migrateUserDefaultsIfNeccessary(settings, old()));
  EXPECT_EQ(settings.integerForKey(settings::global_units), 0) << "taken over a second time";
}

TEST_F(SettingsMigrationTest, ABrokenFileIsLeftForAnotherTime) {
  std::ofstream(old()) << "<plist";
  UserDefaults settings(shared());
  Error error;
  EXPECT_FALSE(migrateUserDefaultsIfNeccessary(settings, old(), &error));
  EXPECT_NE(error.description, "");
  EXPECT_FALSE(settings.boolForKey(zenivo_migrate_appgroups));
  std::filesystem::remove(old());
  EXPECT_TRUE(migrateUserDefaultsIfNeccessary(settings, old()));
  EXPECT_TRUE(settings.boolForKey(zenivo_migrate_appgroups));
}

}  // namespace
}  // namespace zenivo
