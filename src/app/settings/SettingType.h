// What kind of value each setting holds, and its text.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foundation/Error.h"
#include "foundation/PropertyList.h"

namespace zenivo {

enum class SettingType {
  boolean,
  integer,
  real,
  text,
  date,
  camera,   ///< the number of a preset camera, or the name of one of the user's own
  archive,  ///< kept by the program; has no text that could be typed
};

/// The type of a key of the registry: that of its first value in `defaults`, or for one
/// that starts without a value what its owner stores.  Nullopt for an unknown key.
std::optional<SettingType> settingType(std::string_view key,
                                       const PropertyList::Dictionary& defaults);

/// Reads what a user typed for a setting: "true", "no", "off" and the like; whole and
/// decimal numbers with a point; ISO 8601 in UTC ("2026-06-21T03:47:00Z"); any text.
/// Nullopt when the text is no value of the type, and then `error` says what is.
std::optional<PropertyList> settingFromText(SettingType type, std::string_view text,
                                            Error* error = nullptr);

/// The value as settingFromText reads it; of an archive its size or number of entries.
std::string textOfSetting(const PropertyList& value);

}  // namespace zenivo
