// The resource files that come with the program.

#pragma once

#include <filesystem>
#include <string_view>

namespace zenivo {

/// The path of a resource, named from the resource folder on
/// ("userDefaults.plist", "en.lproj/Common.strings").  The folder is
/// $ZENIVO_RESOURCES, else the one the program was built with and, beside it, what
/// that build made.
std::filesystem::path resourcePath(std::string_view name);

}  // namespace zenivo
