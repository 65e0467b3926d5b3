// The first values of the settings.

#pragma once

#include <optional>
#include <string>

#include "foundation/Error.h"
#include "foundation/UserDefaults.h"

namespace zenivo {

/// The values of the resource "userDefaults.plist".  Nullopt with the reason in
/// `error` when it cannot be read or is no dictionary.
std::optional<PropertyList::Dictionary> bundledDefaults(Error* error = nullptr);

/// Registers those values, which are never stored, with the settings.  False with the
/// reason in `error`, and nothing registered, when there are none.
bool registerBundledDefaults(UserDefaults& settings, Error* error = nullptr);

}  // namespace zenivo
