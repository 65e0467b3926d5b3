// The registry of settings: a constant per key that bears the key's own name.

#pragma once

#include <array>
#include <string_view>

namespace zenivo::settings {

#define ZENIVO_SETTING(key) inline constexpr std::string_view key = #key;
#include "app/settings/SettingsKeys.inc"
#undef ZENIVO_SETTING

/// Every key of the registry, in its order.
inline constexpr auto kAllKeys = std::to_array<std::string_view>({
#define ZENIVO_SETTING(key) key,
#include "app/settings/SettingsKeys.inc"
#undef ZENIVO_SETTING
});

}  // namespace zenivo::settings
