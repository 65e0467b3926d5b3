// Changing values and relationships, with both ends kept in step, and deleting.

#include <algorithm>

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {

void ObjectGraph::recordChange(ManagedObject& object, const PropertyDescription& property,
                               Value value) {
  Value& present = object.values_[property.index];
  if (object.state_ != State::inserted) {
    auto& old = object.oldValues_;
    const auto known = std::ranges::find(old, &property, &ManagedObject::OldValue::property);
    if (known == old.end()) {
      old.push_back({&property, std::move(present)});
    } else if (known->value == value) {
      old.erase(known);
    }
  }
  present = std::move(value);
  track(object);
}

void ObjectGraph::setAttribute(ManagedObject& object, const AttributeDescription& attribute,
                               Value value) {
  realise(object);
  Value& present = object.values_[attribute.index];
  if (object.state_ == State::gone || present == value) return;
  if (attribute.isTransient) {
    present = std::move(value);
  } else {
    recordChange(object, attribute, std::move(value));
  }
}

/// Where a column led at the last save, and where it leads now.
ObjectID ObjectGraph::committedColumn(const ManagedObject& object,
                                      const RelationshipDescription& column) const {
  if (object.state_ == State::inserted || object.isFault()) return {};
  const ManagedObject::OldValue* old = object.oldValueOf(column);
  return (old != nullptr ? old->value : object.values_[column.index]).objectID();
}

ObjectID ObjectGraph::presentColumn(const ManagedObject& object,
                                    const RelationshipDescription& column) const {
  if (object.isDeleted() || object.isFault()) return {};
  return object.values_[column.index].objectID();
}

/// Tells the objects that a column led to and leads to of the difference.
void ObjectGraph::contribute(ManagedObject& object, const RelationshipDescription& column) {
  const ObjectID before = committedColumn(object, column);
  const ObjectID after = presentColumn(object, column);
  if (before == after) return;
  const RelationshipDescription& inverse = *column.inverseRelationship;
  if (before) {
    const ManagedObjectPtr from = objectFor(before);
    from->derived(inverse).removed.insert(object.id_);
    track(*from);
  }
  if (after) {
    const ManagedObjectPtr to = objectFor(after);
    to->derived(inverse).added.insert(object.id_);
    track(*to);
  }
}

void ObjectGraph::withdraw(ManagedObject& object, const RelationshipDescription& column) {
  const ObjectID before = committedColumn(object, column);
  const ObjectID after = presentColumn(object, column);
  if (before == after) return;
  const RelationshipDescription& inverse = *column.inverseRelationship;
  const ManagedObjectPtr from = before ? registered(before) : nullptr;
  const ManagedObjectPtr to = after ? registered(after) : nullptr;
  if (from != nullptr) from->derived(inverse).removed.erase(object.id_);
  if (to != nullptr) to->derived(inverse).added.erase(object.id_);
}

void ObjectGraph::contributeAll(ManagedObject& object) {
  for (const RelationshipDescription* each : object.entity_->relationships()) {
    if (each->storage == RelationshipStorage::column) contribute(object, *each);
  }
}

void ObjectGraph::withdrawAll(ManagedObject& object) {
  for (const RelationshipDescription* each : object.entity_->relationships()) {
    if (each->storage == RelationshipStorage::column) withdraw(object, *each);
  }
}

ObjectID ObjectGraph::toOne(ManagedObject& object, const RelationshipDescription& relationship) {
  if (relationship.storage == RelationshipStorage::column) {
    realise(object);
    return object.values_[relationship.index].objectID();
  }
  const ObjectIDs partner = members(object, relationship);
  return partner.empty() ? ObjectID() : partner.front();
}

ObjectIDs ObjectGraph::members(ManagedObject& object, const RelationshipDescription& relationship) {
  return fetched(object, relationship).members();
}

ManagedObjects ObjectGraph::memberObjects(ManagedObject& object,
                                          const RelationshipDescription& relationship) {
  ObjectIDs ids = members(object, relationship);
  ManagedObjects objects;
  objects.reserve(ids.size());
  std::shared_ptr<FaultBatch> batch;
  for (const ObjectID& id : ids) {
    objects.push_back(objectFor(id));
    ManagedObject& member = *objects.back();
    if (!member.isFault() || member.batch_ != nullptr) continue;
    if (batch == nullptr) {
      batch = std::make_shared<FaultBatch>(FaultBatch{{}, object.id_, &relationship});
    }
    member.batch_ = batch;
  }
  if (batch != nullptr) batch->ids = std::move(ids);
  return objects;
}

void ObjectGraph::setToOne(ManagedObject& object, const RelationshipDescription& relationship,
                           const ObjectID& destination) {
  if (relationship.storage == RelationshipStorage::column) {
    return setColumn(object, relationship, destination);
  }
  const RelationshipDescription& column = *relationship.inverseRelationship;
  const ObjectID partner = toOne(object, relationship);
  if (partner == destination) return;
  if (partner) setColumn(*objectFor(partner), column, {});
  if (destination) setColumn(*objectFor(destination), column, object.id_);
}

void ObjectGraph::setColumn(ManagedObject& object, const RelationshipDescription& column,
                            const ObjectID& destination) {
  realise(object);
  if (object.isDeleted() || object.values_[column.index].objectID() == destination) return;
  const RelationshipDescription& inverse = *column.inverseRelationship;
  if (destination && !inverse.isToMany()) {
    const ObjectID rival = toOne(*objectFor(destination), inverse);
    if (rival) setColumn(*objectFor(rival), column, {});
  }
  withdraw(object, column);
  recordChange(object, column, Value(destination));
  contribute(object, column);
}

void ObjectGraph::add(ManagedObject& object, const RelationshipDescription& relationship,
                      const ObjectID& member) {
  if (relationship.storage == RelationshipStorage::inverseColumn) {
    return setColumn(*objectFor(member), *relationship.inverseRelationship, object.id_);
  }
  if (fetched(object, relationship).isMember(member)) return;
  link(object, relationship, member);
  link(*objectFor(member), *relationship.inverseRelationship, object.id_);
}

void ObjectGraph::remove(ManagedObject& object, const RelationshipDescription& relationship,
                         const ObjectID& member) {
  if (!fetched(object, relationship).isMember(member)) return;
  if (relationship.storage == RelationshipStorage::inverseColumn) {
    return setColumn(*objectFor(member), *relationship.inverseRelationship, {});
  }
  unlink(object, relationship, member);
  unlink(*objectFor(member), *relationship.inverseRelationship, object.id_);
}

void ObjectGraph::link(ManagedObject& object, const RelationshipDescription& relationship,
                       const ObjectID& member) {
  DerivedRelationship& derived = fetched(object, relationship);
  derived.removed.erase(member);
  if (!derived.stored->contains(member)) derived.added.insert(member);
  track(object);
}

void ObjectGraph::unlink(ManagedObject& object, const RelationshipDescription& relationship,
                         const ObjectID& member) {
  DerivedRelationship& derived = fetched(object, relationship);
  derived.added.erase(member);
  if (derived.stored->contains(member)) derived.removed.insert(member);
  track(object);
}

void ObjectGraph::setOrder(ManagedObject& object, const RelationshipDescription& relationship,
                           ObjectIDs order) {
  DerivedRelationship& derived = fetched(object, relationship);
  if (derived.members() == order) return;
  derived.order = std::move(order);
  track(object);
}

/// What the row says has changed from one owner to another without a change of this
/// context's: the lists that are in memory follow.
void ObjectGraph::keepListsInStep(const ManagedObject& object,
                                  const RelationshipDescription& column, const ObjectID& before,
                                  const ObjectID& after) {
  if (before == after) return;
  const ManagedObjectPtr left = before ? registered(before) : nullptr;
  const ManagedObjectPtr joined = after ? registered(after) : nullptr;
  const auto listOf = [&](const ManagedObjectPtr& owner) -> ObjectIDSet* {
    if (owner == nullptr || owner->derived_.empty()) return nullptr;
    auto& stored = owner->derived(*column.inverseRelationship).stored;
    return stored ? &*stored : nullptr;
  };
  if (ObjectIDSet* list = listOf(left)) list->erase(object.id_);
  if (ObjectIDSet* list = listOf(joined)) list->insert(object.id_);
}

/// `reachedBy` is the relationship of an owner by whose rule the object goes.
void ObjectGraph::deleteObject(ManagedObject& object, const RelationshipDescription* reachedBy) {
  if (object.isDeleted()) return;
  const ManagedObjectPtr alive = object.shared_from_this();
  // A fault whose one relationship leads to the owner that goes too need not be
  // fetched to be deleted: its values may be large.
  const bool isLeaf = reachedBy != nullptr && object.entity_->relationships().size() == 1 &&
                      reachedBy->storage == RelationshipStorage::inverseColumn;
  if (!isLeaf) realise(object);
  if (object.isDeleted()) return;  // the row was gone
  struct Reached {
    const RelationshipDescription* relationship;
    ObjectIDs ids;
  };
  std::vector<Reached> reached;
  for (const RelationshipDescription* each : object.entity_->relationships()) {
    if (isLeaf) break;
    if (each->storage != RelationshipStorage::column) {
      reached.push_back({each, members(object, *each)});
    } else if (const ObjectID to = toOne(object, *each)) {
      reached.push_back({each, {to}});
    }
  }
  const bool wasInserted = object.state_ == State::inserted;
  withdrawAll(object);
  track(object);
  object.state_ = State::deleted;
  if (wasInserted) {
    // Without a row there is nothing to tell the others of.
    object.values_.assign(object.entity_->properties().size(), Value());
  } else {
    contributeAll(object);
  }
  for (const auto& [relationship, ids] : reached) {
    for (const ObjectID& id : ids) letGo(object, *relationship, id);
  }
  if (!wasInserted) return;
  std::erase(tracked_, alive);
  object.isTracked_ = false;
  leave(object);
}

/// What a deletion means for one object that a relationship of the deleted one led to.
void ObjectGraph::letGo(ManagedObject& deleted, const RelationshipDescription& relationship,
                        const ObjectID& id) {
  const ManagedObjectPtr other = objectFor(id);
  const RelationshipDescription& inverse = *relationship.inverseRelationship;
  if (relationship.storage == RelationshipStorage::joinTable) {
    unlink(deleted, relationship, id);
    unlink(*other, inverse, deleted.id_);
  }
  if (relationship.deleteRule == DeleteRule::cascade) {
    deleteObject(*other, &relationship);
  } else if (relationship.storage == RelationshipStorage::inverseColumn) {
    setColumn(*other, inverse, {});
  }
}

/// Others may have given members to an object after it was deleted here.
void ObjectGraph::letGoOfNewMembers(ManagedObject& deleted) {
  for (const RelationshipDescription* each : deleted.entity_->relationships()) {
    const bool goesAlong = each->storage == RelationshipStorage::column &&
                           each->deleteRule == DeleteRule::cascade && !deleted.isFault();
    const ObjectID to = goesAlong ? deleted.values_[each->index].objectID() : ObjectID();
    if (to) deleteObject(*objectFor(to), each);
  }
  for (const RelationshipDescription* each : deleted.entity_->derivedRelationships()) {
    fetchMembers({deleted.shared_from_this()}, *each);
    dropChangesOfOthers(deleted, *each);
    const ObjectIDs members = deleted.derived(*each).stored->ids();
    for (const ObjectID& id : members) {
      const bool isKnown = deleted.derived(*each).removed.contains(id);
      if (!isKnown && !objectFor(id)->isDeleted()) letGo(deleted, *each, id);
    }
  }
}

void ObjectGraph::undelete(ManagedObject& object) {
  if (object.state_ != State::deleted) return;
  withdrawAll(object);
  object.state_ = State::updated;
  contributeAll(object);
}

}  // namespace zenivo
