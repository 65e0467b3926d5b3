// The resource files that come with the program.

#pragma once

#include <filesystem>
#include <string_view>

namespace zenivo {

/// The path of a resource, named from the resource folder on
/// ("userDefaults.plist", "en.lproj/Common.strings").  The folder is
/// $ZENIVO_RESOURCES, else the first of these that has it: ../share/zenivo beside the
/// program, those of the build tree, and where the library was to be installed.
std::filesystem::path resourcePath(std::string_view name);

}  // namespace zenivo
