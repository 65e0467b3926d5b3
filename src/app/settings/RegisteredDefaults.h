// The first values of the settings.

#pragma once

#include <string>

#include "foundation/UserDefaults.h"

namespace zenivo {

/// Registers the values of the resource "userDefaults.plist", which are never
/// stored, with the settings.  False with the reason in `error`, and nothing
/// registered, when the resource cannot be read or is no dictionary.
bool registerBundledDefaults(UserDefaults& settings, std::string* error = nullptr);

}  // namespace zenivo
