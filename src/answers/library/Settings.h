// The values that the tools keep, and their change.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "answers/common/Moments.h"
#include "answers/common/UserSettings.h"
#include "app/settings/SettingType.h"

namespace zenivo {

struct SettingsQuestion {
  std::string text = {};     ///< part of the key; empty for all
  bool changedOnly = false;  ///< those that differ from their first value
};

struct SettingReport {
  std::string key = {};
  SettingType type = SettingType::text;
  std::optional<PropertyList> value = {};
  std::optional<PropertyList> firstValue = {};

  bool isChanged() const { return value != firstValue; }
};

/// In the order of the registry.
struct SettingsReport {
  std::vector<SettingReport> settings;
};

struct SettingQuestion {
  std::string key = {};
};

struct SetSetting {
  std::string key = {};
  std::string text = {};  ///< as settingFromText reads it
};

/// Brings back what it was at first.
struct ResetSetting {
  std::string key = {};
};
struct ResetAllSettings {};

// Those with a key throw InputError for one that there is not, and for a text that is no
// value of it.  Those that change throw std::runtime_error when the change cannot be kept.

SettingsReport answer(const SettingsQuestion& question, UserSettings& settings);
SettingReport answer(const SettingQuestion& question, UserSettings& settings);
/// What it is then.
SettingReport answer(const SetSetting& question, UserSettings& settings);
SettingReport answer(const ResetSetting& question, UserSettings& settings);
/// The settings that are changed then: none.
SettingsReport answer(const ResetAllSettings& question, UserSettings& settings);

Json json(const SettingsReport& report);
Json json(const SettingReport& report);

}  // namespace zenivo
