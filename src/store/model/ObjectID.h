// Identities of stored objects.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zenivo {

class EntityDescription;

/// Which object, in which store.  An inserted object has a temporary identity,
/// known in this process alone, until it is saved or obtainPermanentIDsForObjects
/// reserves a place for it; a permanent one names the same row for ever, in every
/// process and context, and is never given to another object.
///
/// A small value that may cross threads; its entity stays valid while the model
/// lives.  Equal exactly when both name the same object.
class ObjectID {
 public:
  /// Names no object.
  constexpr ObjectID() = default;

  /// A new temporary identity, unlike every other in this process.
  static ObjectID makeTemporaryID(const EntityDescription& entity);
  /// The identity of a row.  REQUIRES: key > 0.
  static ObjectID makePermanentID(const EntityDescription& entity, const std::string* store,
                                  std::int64_t key);

  explicit operator bool() const { return key_ != 0; }
  bool isTemporaryID() const { return key_ < 0; }

  /// REQUIRES: names an object.
  const EntityDescription& entity() const { return *entity_; }

  /// Identifier of the store that holds the row; empty for a temporary identity.
  const std::string& storeIdentifier() const;

  /// The row's key, the same number for one row in every context; negative for a
  /// temporary identity, 0 for none.
  std::int64_t key() const { return key_; }

  /// "x-zenivo://<store>/<entity>/p<key>", which the coordinator reads back, or
  /// "x-zenivo:///<entity>/t<text>", which nobody can.
  std::string URIRepresentation() const;

  friend bool operator==(const ObjectID& a, const ObjectID& b) {
    return a.key_ == b.key_ && a.store_ == b.store_;
  }
  /// By key alone: the order of insertion, unsaved objects first.
  friend bool operator<(const ObjectID& a, const ObjectID& b) { return a.key_ < b.key_; }

 private:
  friend struct std::hash<ObjectID>;

  const EntityDescription* entity_ = nullptr;
  const std::string* store_ = nullptr;  // interned, so that equal texts have one address
  std::int64_t key_ = 0;
};

using ObjectIDs = std::vector<ObjectID>;

/// The one lasting copy of a store's identifier.
const std::string* internStoreIdentifier(std::string_view identifier);

/// The parts of a permanent identity's URI; empty entity when it is none.
struct ObjectURI {
  std::string store = {};
  std::string entity = {};
  std::int64_t key = 0;
};
ObjectURI parseObjectURI(std::string_view uri);

}  // namespace zenivo

template <>
struct std::hash<zenivo::ObjectID> {
  std::size_t operator()(const zenivo::ObjectID& id) const {
    // Keys come in runs; a multiplicative hash spreads them over the buckets.
    return static_cast<std::size_t>(id.key_) * std::size_t{0x9e3779b97f4a7c15};
  }
};
