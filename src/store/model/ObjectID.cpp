#include "store/model/ObjectID.h"

#include <fmt/format.h>

#include <atomic>
#include <charconv>
#include <mutex>
#include <random>
#include <set>

#include "store/model/EntityDescription.h"

namespace zenivo {
namespace {

constexpr std::string_view kScheme = "x-zenivo://";

/// Tells this process's temporary identities from those of any other.
std::uint64_t processToken() {
  static const std::uint64_t token = [] {
    std::random_device device;
    return (std::uint64_t{device()} << 32) | device();
  }();
  return token;
}

}  // namespace

ObjectID ObjectID::makeTemporaryID(const EntityDescription& entity) {
  static std::atomic<std::int64_t> last{0};
  ObjectID id;
  id.entity_ = &entity;
  id.key_ = --last;
  return id;
}

ObjectID ObjectID::makePermanentID(const EntityDescription& entity, const std::string* store,
                                   std::int64_t key) {
  ObjectID id;
  id.entity_ = &entity;
  id.store_ = store;
  id.key_ = key;
  return id;
}

const std::string& ObjectID::storeIdentifier() const {
  static const std::string none;
  return store_ != nullptr ? *store_ : none;
}

std::string ObjectID::URIRepresentation() const {
  if (key_ == 0) return {};
  if (isTemporaryID()) {
    return fmt::format("{}/{}/t{:016X}-{}", kScheme, entity_->name(), processToken(), -key_);
  }
  return fmt::format("{}{}/{}/p{}", kScheme, *store_, entity_->name(), key_);
}

const std::string* internStoreIdentifier(std::string_view identifier) {
  static std::mutex mutex;
  static std::set<std::string, std::less<>> identifiers;
  const std::lock_guard<std::mutex> guard(mutex);
  const auto found = identifiers.find(identifier);
  return found != identifiers.end() ? &*found : &*identifiers.emplace(identifier).first;
}

ObjectURI parseObjectURI(std::string_view uri) {
  if (!uri.starts_with(kScheme)) return {};
  uri.remove_prefix(kScheme.size());
  const std::size_t entityAt = uri.find('/');
  if (entityAt == std::string_view::npos) return {};
  const std::size_t keyAt = uri.find("/p", entityAt + 1);
  if (keyAt == std::string_view::npos) return {};
  ObjectURI parts{.store = std::string(uri.substr(0, entityAt)),
                  .entity = std::string(uri.substr(entityAt + 1, keyAt - entityAt - 1))};
  const std::string_view digits = uri.substr(keyAt + 2);
  const auto [end, code] = std::from_chars(digits.data(), digits.data() + digits.size(), parts.key);
  const bool whole = code == std::errc() && end == digits.data() + digits.size();
  if (!whole || parts.key <= 0 || parts.store.empty()) return {};
  return parts;
}

}  // namespace zenivo
