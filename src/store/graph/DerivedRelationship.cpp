#include "store/graph/DerivedRelationship.h"

#include <algorithm>

namespace zenivo {
namespace {

constexpr std::size_t kWorthAnIndex = 16;

void replaceIn(ObjectIDs& ids, const std::unordered_map<ObjectID, ObjectID>& byOld) {
  for (ObjectID& id : ids) {
    const auto found = id.isTemporaryID() ? byOld.find(id) : byOld.end();
    if (found != byOld.end()) id = found->second;
  }
}

}  // namespace

bool ObjectIDSet::contains(const ObjectID& id) const {
  if (ids_.size() < kWorthAnIndex) return std::ranges::find(ids_, id) != ids_.end();
  if (index_.empty()) index_.insert(ids_.begin(), ids_.end());
  return index_.contains(id);
}

bool ObjectIDSet::insert(const ObjectID& id) {
  if (contains(id)) return false;
  ids_.push_back(id);
  if (!index_.empty()) index_.insert(id);
  return true;
}

bool ObjectIDSet::erase(const ObjectID& id) {
  if (!contains(id)) return false;
  ids_.erase(std::ranges::find(ids_, id));
  index_.erase(id);
  return true;
}

void ObjectIDSet::clear() {
  ids_.clear();
  index_.clear();
}

void ObjectIDSet::replace(const std::unordered_map<ObjectID, ObjectID>& byOld) {
  replaceIn(ids_, byOld);
  index_.clear();
}

void DerivedRelationship::dropChanges() {
  added.clear();
  removed.clear();
  order.reset();
}

bool DerivedRelationship::isMember(const ObjectID& id) const {
  return added.contains(id) || (stored->contains(id) && !removed.contains(id));
}

ObjectIDs DerivedRelationship::members() const {
  ObjectIDs members;
  members.reserve(stored->size() + added.size());
  for (const ObjectID& id : stored->ids()) {
    if (!removed.contains(id)) members.push_back(id);
  }
  for (const ObjectID& id : added.ids()) {
    if (!stored->contains(id) || removed.contains(id)) members.push_back(id);
  }
  if (!order) return members;
  // Members without a place, which others added, go behind those that have one.
  std::unordered_set<ObjectID> unplaced(members.begin(), members.end());
  ObjectIDs ordered;
  ordered.reserve(members.size());
  for (const ObjectID& id : *order) {
    if (unplaced.erase(id) != 0) ordered.push_back(id);
  }
  for (const ObjectID& id : members) {
    if (unplaced.contains(id)) ordered.push_back(id);
  }
  return ordered;
}

void DerivedRelationship::replace(const std::unordered_map<ObjectID, ObjectID>& byOld) {
  if (stored) stored->replace(byOld);
  added.replace(byOld);
  removed.replace(byOld);
  if (order) replaceIn(*order, byOld);
}

}  // namespace zenivo
