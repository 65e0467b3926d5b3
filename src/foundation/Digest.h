// Fingerprints of data.

#pragma once

#include <string>
#include <string_view>

namespace zenivo {

/// The MD5 digest (RFC 1321) of the bytes, 32 lower-case hexadecimal digits.  For
/// names of content; it resists no forger.
std::string md5String(std::string_view bytes);

}  // namespace zenivo
