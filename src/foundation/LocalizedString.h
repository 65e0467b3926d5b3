// The texts that users read.

#pragma once

#include <string>
#include <string_view>

namespace zenivo {

/// The text of a key in a table, that is in the resource
/// "en.lproj/<table>.strings", a property list dictionary of texts.  Places for
/// values are written {} in it.  A key without a text is its own text; a table
/// that cannot be read is reported once and has none.  Callable from any thread.
std::string localizedString(std::string_view key, std::string_view table);

}  // namespace zenivo
