// The settings that are a choice among numbered things, or a number with bounds.

#pragma once

#include <string>
#include <string_view>

#include "foundation/PropertyList.h"

namespace zenivo {

/// Whether the setting may be given the value: one of its choices, or a number within the
/// bounds of the option that stores it.  Settings without bounds may hold any.
bool isInSettingRange(std::string_view key, const PropertyList& value);

/// Whether a stored value may be read: the same, and 0, which stands for unset.
bool isReadableSetting(std::string_view key, const PropertyList& value);

/// "0 (metric) or 1 (imperial)", or for a long choice its first and last number; "a number
/// above 0".  Empty for a setting without bounds.
std::string settingRangeText(std::string_view key);

}  // namespace zenivo
