#include "store/graph/Merging.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {
namespace {

class RowCollector : public RowReceiver {
 public:
  bool found(const ObjectID&) override { return true; }
  void take(Row&& row) override { rows.push_back(std::move(row)); }
  std::vector<Row> rows;
};

}  // namespace

/// The row becomes what the object knows as committed; its own changes stay on top.
void Merging::takeOver(ManagedObject& object, Row&& row) {
  for (DerivedRelationship& derived : object.derived_) derived.stored.reset();
  object.version_ = row.version;
  for (const PropertyDescription* property : object.entity_->properties()) {
    if (property->isTransient) continue;
    const auto* relationship = asRelationship(property);
    if (relationship != nullptr && relationship->storage != RelationshipStorage::column) continue;
    Value& theirs = row.values[property->index];
    const auto old =
        std::ranges::find(object.oldValues_, property, &ManagedObject::OldValue::property);
    Value& known = old != object.oldValues_.end() ? old->value : object.values_[property->index];
    if (known == theirs) continue;
    if (relationship != nullptr) {
      takeOverColumn(object, *relationship, known, std::move(theirs));
    } else {
      known = std::move(theirs);
    }
    std::erase_if(object.oldValues_, [&](const ManagedObject::OldValue& each) {
      return each.property == property && each.value == object.values_[property->index];
    });
  }
}

void Merging::takeOverColumn(ManagedObject& object, const RelationshipDescription& column,
                             Value& known, Value&& theirs) {
  const ObjectID before = known.objectID();
  const ObjectID after = theirs.objectID();
  graph_.relationships().withdraw(object, column);
  known = std::move(theirs);
  graph_.relationships().keepListsInStep(object, column, before, after);
  graph_.relationships().contribute(object, column);
}

/// A partner that was given away here, unsaved, stays with whom it was given to, even
/// if others gave it to another object meanwhile.
void Merging::keepPartners(ManagedObject& object) {
  for (const RelationshipDescription* each : object.entity_->derivedRelationships()) {
    if (each->isToMany() || object.derived(*each).added.empty()) continue;
    const ObjectIDs stored = graph_.fetched(object, *each).stored->ids();
    for (const ObjectID& id : stored) {
      if (object.derived(*each).removed.contains(id)) continue;
      graph_.relationships().setColumn(*graph_.objectFor(id), *each->inverseRelationship, {});
    }
  }
}

/// What others added or removed too is no change of this context's any more.
void Merging::dropChangesOfOthers(ManagedObject& object,
                                  const RelationshipDescription& relationship) {
  const bool isOwnTruth = relationship.storage == RelationshipStorage::joinTable;
  if (!isOwnTruth || !object.derived(relationship).hasChanges()) return;
  DerivedRelationship& derived = graph_.fetched(object, relationship);
  const ObjectIDs added = derived.added.ids();
  const ObjectIDs removed = derived.removed.ids();
  for (const ObjectID& id : added) {
    if (derived.stored->contains(id)) derived.added.erase(id);
  }
  for (const ObjectID& id : removed) {
    if (!derived.stored->contains(id)) derived.removed.erase(id);
  }
}

void Merging::refresh(ManagedObject& object, bool mergeChanges) {
  graph_.identities().adoptPermanentIDs();
  if (object.state_ == State::inserted || object.state_ == State::gone) return;
  if (mergeChanges) {
    if (object.state_ != State::deleted) merge({}, {object.id_}, {});
    return;
  }
  graph_.deletions().undelete(object);
  revertOwnChanges(object);
  if (object.oldValues_.empty()) graph_.turnIntoFault(object);
}

/// Drops what this object holds of unsaved changes; its to-many relationships whose
/// truth lies with other objects stay as those have them.
void Merging::revertOwnChanges(ManagedObject& object) {
  const std::vector<ManagedObject::OldValue> oldValues = object.oldValues_;
  for (const ManagedObject::OldValue& old : oldValues) {
    const RelationshipDescription* column = asRelationship(old.property);
    if (column == nullptr) {
      graph_.relationships().recordChange(object, *old.property, old.value);
      continue;
    }
    const ObjectID to = old.value.objectID();
    if (!to || !graph_.objectFor(to)->isDeleted())
      graph_.relationships().setColumn(object, *column, to);
  }
  for (const RelationshipDescription* each : object.entity_->derivedRelationships()) {
    object.derived(*each).order.reset();
    if (each->storage == RelationshipStorage::joinTable) revertMembers(object, *each);
  }
}

void Merging::revertMembers(ManagedObject& object, const RelationshipDescription& relationship) {
  const DerivedRelationship before = graph_.fetched(object, relationship);
  const RelationshipDescription& inverse = *relationship.inverseRelationship;
  for (const ObjectID& id : before.added.ids()) {
    graph_.relationships().unlink(object, relationship, id);
    graph_.relationships().unlink(*graph_.objectFor(id), inverse, object.id_);
  }
  for (const ObjectID& id : before.removed.ids()) {
    const ManagedObjectPtr member = graph_.objectFor(id);
    if (member->isDeleted()) continue;
    graph_.relationships().link(object, relationship, id);
    graph_.relationships().link(*member, inverse, object.id_);
  }
}

void Merging::merge(const ObjectIDs& inserted, const ObjectIDs& updated, const ObjectIDs& deleted) {
  ObjectIDs toRead;
  const auto read = [&](const ObjectID& id) {
    const ManagedObjectPtr object = graph_.registry().find(id);
    if (object == nullptr || object->state_ == State::gone) return;
    for (DerivedRelationship& derived : object->derived_) derived.stored.reset();
    if (!object->isFault()) toRead.push_back(id);
  };
  for (const ObjectID& id : inserted) read(id);
  for (const ObjectID& id : updated) read(id);
  for (const ObjectID& id : deleted) {
    const ManagedObjectPtr object = graph_.registry().find(id);
    if (object == nullptr) continue;
    ObjectIDs members;  // rows that the deletion may have reached without telling
    for (const DerivedRelationship& derived : object->derived_) {
      if (derived.stored) std::ranges::copy(derived.stored->ids(), std::back_inserter(members));
    }
    for (const ObjectID& member : members) read(member);
    if (object->state_ != State::gone) graph_.vanish(*object);
    graph_.registry().forget(id);
  }
  RowCollector collector;
  if (!toRead.empty()) graph_.ground()->rows(toRead, collector);
  std::unordered_set<ObjectID> existing;
  for (Row& row : collector.rows) {
    existing.insert(row.id);
    const ManagedObjectPtr object = graph_.registry().find(row.id);
    if (object != nullptr) takeOver(*object, std::move(row));
  }
  for (const ObjectID& id : toRead) {
    const ManagedObjectPtr object = graph_.registry().find(id);
    if (object != nullptr && !existing.contains(id)) graph_.vanish(*object);
  }
  const ManagedObjects unsaved =
      graph_.changes().those([](const auto& object) { return object.hasChanges(); });
  for (const ManagedObjectPtr& object : unsaved) {
    if (object->isDeleted()) continue;
    keepPartners(*object);
    for (const RelationshipDescription* each : object->entity_->derivedRelationships()) {
      dropChangesOfOthers(*object, *each);
    }
  }
  for (const ManagedObjectPtr& object : unsaved) {
    if (object->state_ == State::deleted) graph_.deletions().letGoOfNewMembers(*object);
  }
}

}  // namespace zenivo
