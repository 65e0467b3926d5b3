#include "foundation/Base64.h"

#include <openssl/evp.h>

#include <algorithm>
#include <limits>

namespace zenivo {

std::string base64String(const std::vector<std::uint8_t>& bytes) {
  std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');  // one more for the NUL it appends
  const int length = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(text.data()), bytes.data(),
                                     static_cast<int>(bytes.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::optional<std::vector<std::uint8_t>> dataFromBase64String(std::string_view text) {
  std::string digits;
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\n' && c != '\r') digits.push_back(c);
  }
  // The decoder reads padding anywhere as zeros, so its place is checked here.
  const std::size_t padding = digits.size() - std::min(digits.find('='), digits.size());
  if (digits.size() % 4 != 0 || padding > 2 || digits.size() > std::numeric_limits<int>::max() ||
      digits.find_first_not_of('=', digits.size() - padding) != std::string::npos) {
    return std::nullopt;
  }
  std::vector<std::uint8_t> bytes(digits.size() / 4 * 3);
  const int length =
      EVP_DecodeBlock(bytes.data(), reinterpret_cast<const unsigned char*>(digits.data()),
                      static_cast<int>(digits.size()));
  if (length != static_cast<int>(bytes.size())) return std::nullopt;
  bytes.resize(bytes.size() - padding);
  return bytes;
}

}  // namespace zenivo
