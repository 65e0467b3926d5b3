#include "foundation/Digest.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <openssl/evp.h>

#include <array>

namespace zenivo {

std::string md5String(std::string_view bytes) {
  std::array<unsigned char, 16> digest{};
  EVP_Digest(bytes.data(), bytes.size(), digest.data(), nullptr, EVP_md5(), nullptr);
  return fmt::format("{:02x}", fmt::join(digest, ""));
}

}  // namespace zenivo
