#include "store/model/ModelVersion.h"

#include <fmt/format.h>
#include <openssl/sha.h>

#include <algorithm>

namespace zenivo {
namespace {

constexpr const char* kRequired = "required";
constexpr const char* kTransient = "transient";

bool has(const PropertyRecord& property, const char* remark) {
  return std::ranges::find(property.remarks, remark) != property.remarks.end();
}

Data sha256Of(const std::string& text) {
  Data digest(SHA256_DIGEST_LENGTH);
  SHA256(reinterpret_cast<const unsigned char*>(text.data()), text.size(), digest.data());
  return digest;
}

std::string hexadecimal(const Data& bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += fmt::format("{:02x}", byte);
  return text;
}

}  // namespace

Data versionHashOf(const EntityRecord& entity) {
  EntityRecord seen = entity;
  std::erase_if(seen.properties, [](const auto& property) { return has(property, kTransient); });
  for (PropertyRecord& property : seen.properties) {
    std::erase_if(property.remarks, [](const auto& remark) { return remark != kRequired; });
  }
  return sha256Of(formatEntityRecord(seen));
}

Data storedHashOf(const EntityRecord& entity) {
  return sha256Of(formatEntityRecord(entity));
}

std::string modelHashOf(const std::map<std::string, Data>& entityHashes) {
  std::string text;
  for (const auto& [entity, hash] : entityHashes) text += entity + " " + hexadecimal(hash) + "\n";
  return hexadecimal(sha256Of(text));
}

}  // namespace zenivo
