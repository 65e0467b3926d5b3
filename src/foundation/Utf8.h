// UTF-8 text that XML can hold.

#pragma once

#include <cstddef>
#include <string_view>

namespace zenivo {

/// Place of the first byte that is no well-formed UTF-8 or begins a character
/// that XML 1.0 does not allow (control characters but tab and line ends, U+FFFE,
/// U+FFFF); std::string_view::npos when there is none.
std::size_t firstByteNotAllowedInXml(std::string_view text);

}  // namespace zenivo
