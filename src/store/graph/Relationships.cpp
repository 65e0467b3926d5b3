#include "store/graph/Relationships.h"

#include <algorithm>

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {

/// What is read later may know of a move that the lists read earlier do not: they
/// follow the rows.
void Relationships::keepListsOf(const ManagedObject& object) {
  const FaultBatch* batch = object.batch_.get();
  for (const RelationshipDescription* column : object.entity_->relationships()) {
    if (column->storage != RelationshipStorage::column) continue;
    const bool cameBy = batch != nullptr && batch->relationship == column->inverseRelationship;
    const ObjectID listedBy = cameBy ? batch->owner : ObjectID();
    keepListsInStep(object, *column, listedBy, object.values_[column->index].objectID());
  }
}

/// A partner that was given to another object here, unsaved, stays there, even if the row
/// that is read now was given it by others meanwhile.
void Relationships::keepGivenPartners(ManagedObject& object) {
  for (const RelationshipDescription* column : object.entity_->relationships()) {
    const RelationshipDescription& inverse = *column->inverseRelationship;
    if (column->storage != RelationshipStorage::column || inverse.isToMany()) continue;
    const ManagedObjectPtr partner =
        graph_.registry().find(object.values_[column->index].objectID());
    if (partner == nullptr || partner->derived_.empty()) continue;
    const ObjectIDSet& given = partner->derived(inverse).added;
    if (!given.empty() && !given.contains(object.id_)) setColumn(object, *column, {});
  }
}

void Relationships::recordChange(ManagedObject& object, const PropertyDescription& property,
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
  graph_.changes().add(object);
}

void Relationships::setAttribute(ManagedObject& object, const AttributeDescription& attribute,
                                 Value value) {
  graph_.realise(object);
  Value& present = object.values_[attribute.index];
  if (object.state_ == State::gone || present == value) return;
  if (attribute.isTransient) {
    present = std::move(value);
  } else {
    recordChange(object, attribute, std::move(value));
  }
}

/// Where a column led at the last save, and where it leads now.
ObjectID Relationships::committedColumn(const ManagedObject& object,
                                        const RelationshipDescription& column) const {
  if (object.state_ == State::inserted || object.isFault()) return {};
  const ManagedObject::OldValue* old = object.oldValueOf(column);
  return (old != nullptr ? old->value : object.values_[column.index]).objectID();
}

ObjectID Relationships::presentColumn(const ManagedObject& object,
                                      const RelationshipDescription& column) const {
  if (object.isDeleted() || object.isFault()) return {};
  return object.values_[column.index].objectID();
}

/// Tells the objects that a column led to and leads to of the difference.
void Relationships::contribute(ManagedObject& object, const RelationshipDescription& column) {
  const ObjectID before = committedColumn(object, column);
  const ObjectID after = presentColumn(object, column);
  if (before == after) return;
  const RelationshipDescription& inverse = *column.inverseRelationship;
  if (before) {
    const ManagedObjectPtr from = graph_.objectFor(before);
    from->derived(inverse).removed.insert(object.id_);
    graph_.changes().add(*from);
  }
  if (after) {
    const ManagedObjectPtr to = graph_.objectFor(after);
    to->derived(inverse).added.insert(object.id_);
    graph_.changes().add(*to);
  }
}

void Relationships::withdraw(ManagedObject& object, const RelationshipDescription& column) {
  const ObjectID before = committedColumn(object, column);
  const ObjectID after = presentColumn(object, column);
  if (before == after) return;
  const RelationshipDescription& inverse = *column.inverseRelationship;
  const ManagedObjectPtr from = before ? graph_.registry().find(before) : nullptr;
  const ManagedObjectPtr to = after ? graph_.registry().find(after) : nullptr;
  if (from != nullptr) from->derived(inverse).removed.erase(object.id_);
  if (to != nullptr) to->derived(inverse).added.erase(object.id_);
}

void Relationships::contributeAll(ManagedObject& object) {
  for (const RelationshipDescription* each : object.entity_->relationships()) {
    if (each->storage == RelationshipStorage::column) contribute(object, *each);
  }
}

void Relationships::withdrawAll(ManagedObject& object) {
  for (const RelationshipDescription* each : object.entity_->relationships()) {
    if (each->storage == RelationshipStorage::column) withdraw(object, *each);
  }
}

ObjectID Relationships::toOne(ManagedObject& object, const RelationshipDescription& relationship) {
  if (relationship.storage == RelationshipStorage::column) {
    graph_.realise(object);
    return object.values_[relationship.index].objectID();
  }
  const ObjectIDs partner = members(object, relationship);
  return partner.empty() ? ObjectID() : partner.front();
}

ObjectIDs Relationships::members(ManagedObject& object,
                                 const RelationshipDescription& relationship) {
  return graph_.fetched(object, relationship).members();
}

ManagedObjects Relationships::memberObjects(ManagedObject& object,
                                            const RelationshipDescription& relationship) {
  ObjectIDs ids = members(object, relationship);
  ManagedObjects objects;
  objects.reserve(ids.size());
  std::shared_ptr<FaultBatch> batch;
  for (const ObjectID& id : ids) {
    objects.push_back(graph_.objectFor(id));
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

void Relationships::setToOne(ManagedObject& object, const RelationshipDescription& relationship,
                             const ObjectID& destination) {
  if (relationship.storage == RelationshipStorage::column) {
    return setColumn(object, relationship, destination);
  }
  const RelationshipDescription& column = *relationship.inverseRelationship;
  const ObjectID partner = toOne(object, relationship);
  if (partner == destination) return;
  if (partner) setColumn(*graph_.objectFor(partner), column, {});
  if (destination) setColumn(*graph_.objectFor(destination), column, object.id_);
}

void Relationships::setColumn(ManagedObject& object, const RelationshipDescription& column,
                              const ObjectID& destination) {
  graph_.realise(object);
  if (object.isDeleted() || object.values_[column.index].objectID() == destination) return;
  const RelationshipDescription& inverse = *column.inverseRelationship;
  if (destination && !inverse.isToMany()) {
    const ObjectID rival = toOne(*graph_.objectFor(destination), inverse);
    if (rival) setColumn(*graph_.objectFor(rival), column, {});
  }
  withdraw(object, column);
  recordChange(object, column, Value(destination));
  contribute(object, column);
}

void Relationships::add(ManagedObject& object, const RelationshipDescription& relationship,
                        const ObjectID& member) {
  if (relationship.storage == RelationshipStorage::inverseColumn) {
    return setColumn(*graph_.objectFor(member), *relationship.inverseRelationship, object.id_);
  }
  if (graph_.fetched(object, relationship).isMember(member)) return;
  link(object, relationship, member);
  link(*graph_.objectFor(member), *relationship.inverseRelationship, object.id_);
}

void Relationships::remove(ManagedObject& object, const RelationshipDescription& relationship,
                           const ObjectID& member) {
  if (!graph_.fetched(object, relationship).isMember(member)) return;
  if (relationship.storage == RelationshipStorage::inverseColumn) {
    return setColumn(*graph_.objectFor(member), *relationship.inverseRelationship, {});
  }
  unlink(object, relationship, member);
  unlink(*graph_.objectFor(member), *relationship.inverseRelationship, object.id_);
}

void Relationships::link(ManagedObject& object, const RelationshipDescription& relationship,
                         const ObjectID& member) {
  DerivedRelationship& derived = graph_.fetched(object, relationship);
  derived.removed.erase(member);
  if (!derived.stored->contains(member)) derived.added.insert(member);
  graph_.changes().add(object);
}

void Relationships::unlink(ManagedObject& object, const RelationshipDescription& relationship,
                           const ObjectID& member) {
  DerivedRelationship& derived = graph_.fetched(object, relationship);
  derived.added.erase(member);
  if (derived.stored->contains(member)) derived.removed.insert(member);
  graph_.changes().add(object);
}

void Relationships::setOrder(ManagedObject& object, const RelationshipDescription& relationship,
                             ObjectIDs order) {
  DerivedRelationship& derived = graph_.fetched(object, relationship);
  if (derived.members() == order) return;
  derived.order = std::move(order);
  graph_.changes().add(object);
}

/// What the row says has changed from one owner to another without a change of this
/// context's: the lists that are in memory follow.
void Relationships::keepListsInStep(const ManagedObject& object,
                                    const RelationshipDescription& column, const ObjectID& before,
                                    const ObjectID& after) {
  if (before == after) return;
  const ManagedObjectPtr left = before ? graph_.registry().find(before) : nullptr;
  const ManagedObjectPtr joined = after ? graph_.registry().find(after) : nullptr;
  const auto listOf = [&](const ManagedObjectPtr& owner) -> ObjectIDSet* {
    if (owner == nullptr || owner->derived_.empty()) return nullptr;
    auto& stored = owner->derived(*column.inverseRelationship).stored;
    return stored ? &*stored : nullptr;
  };
  if (ObjectIDSet* list = listOf(left)) list->erase(object.id_);
  if (ObjectIDSet* list = listOf(joined)) list->insert(object.id_);
}

}  // namespace zenivo
