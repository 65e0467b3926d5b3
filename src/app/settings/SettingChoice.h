// The settings that are a choice among numbered things.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zenivo {

/// Whether the setting may hold the number.  Settings that are no choice hold any.  What
/// a file holds otherwise is for the setting's owner to read in its own way.
bool isSettingChoice(std::string_view key, std::int64_t number);

/// "0 (metric) or 1 (imperial)", or for a long choice its first and last number.  Empty for
/// a setting that is none.
std::string settingChoicesText(std::string_view key);

}  // namespace zenivo
