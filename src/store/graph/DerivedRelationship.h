// A relationship that the rows of its destinations hold, as an object sees it.

#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <unordered_set>

#include "store/model/ObjectID.h"

namespace zenivo {

/// Set of identities that keeps the order of their coming.
class ObjectIDSet {
 public:
  ObjectIDSet() = default;
  /// REQUIRES: none comes twice.
  explicit ObjectIDSet(ObjectIDs ids) : ids_(std::move(ids)) {}

  bool empty() const { return ids_.empty(); }
  std::size_t size() const { return ids_.size(); }
  const ObjectIDs& ids() const { return ids_; }
  bool contains(const ObjectID& id) const;
  /// False when it was in already.
  bool insert(const ObjectID& id);
  /// False when it was not in.
  bool erase(const ObjectID& id);
  void clear();
  void replace(const std::unordered_map<ObjectID, ObjectID>& byOld);

 private:
  mutable std::unordered_set<ObjectID> index_;  // made when a large set is searched
  ObjectIDs ids_;
};

/// The members as the store has them, fetched when first needed, and what unsaved
/// changes add and take away.  Changes need no fetch.
struct DerivedRelationship {
  std::optional<ObjectIDSet> stored;  ///< nullopt until fetched
  ObjectIDSet added;
  ObjectIDSet removed;
  std::optional<ObjectIDs> order;  ///< set when members were put at places

  bool hasChanges() const { return !added.empty() || !removed.empty() || order.has_value(); }
  void dropChanges();

  /// REQUIRES of both: stored is there.
  ObjectIDs members() const;
  bool isMember(const ObjectID& id) const;

  void replace(const std::unordered_map<ObjectID, ObjectID>& byOld);
};

}  // namespace zenivo
