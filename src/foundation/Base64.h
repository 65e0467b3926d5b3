// Bytes as Base64 text (RFC 4648, section 4).

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo {

/// The text of the bytes, padded, on one line.
std::string base64String(const std::vector<std::uint8_t>& bytes);

/// The bytes of a padded text; white space may stand anywhere.  Nullopt for
/// anything else.
std::optional<std::vector<std::uint8_t>> dataFromBase64String(std::string_view text);

}  // namespace zenivo
