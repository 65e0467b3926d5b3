// Taking over what others saved.

#include <algorithm>
#include <iterator>
#include <unordered_set>

#include "store/ManagedObjectContext.h"
#include "store/ObjectGraph.h"

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
void ObjectGraph::takeOver(ManagedObject& object, Row&& row) {
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
    const ObjectID before = known.objectID();
    const ObjectID after = theirs.objectID();
    if (relationship != nullptr) withdraw(object, *relationship);
    known = std::move(theirs);
    if (old != object.oldValues_.end() && old->value == object.values_[property->index]) {
      object.oldValues_.erase(old);
    }
    if (relationship == nullptr) continue;
    keepListsInStep(object, *relationship, before, after);
    contribute(object, *relationship);
  }
}

void ObjectGraph::refresh(ManagedObject& object, bool mergeChanges) {
  adoptPermanentIDs();
  if (object.state_ == State::inserted || object.isDeleted()) return;
  if (!mergeChanges) {
    revertOwnChanges(object);
    return turnIntoFault(object);
  }
  merge({}, {object.id_}, {});
}

/// Drops what this object holds of unsaved changes; its to-many relationships whose
/// truth lies with other objects stay as those have them.
void ObjectGraph::revertOwnChanges(ManagedObject& object) {
  while (!object.oldValues_.empty()) {
    const ManagedObject::OldValue old = object.oldValues_.back();
    const RelationshipDescription* column = asRelationship(old.property);
    if (column != nullptr) {
      setColumn(object, *column, old.value.objectID());
    } else {
      recordChange(object, *old.property, old.value);
    }
  }
  for (const RelationshipDescription* each : object.entity_->derivedRelationships()) {
    DerivedRelationship& derived = object.derived(*each);
    derived.order.reset();
    if (each->storage != RelationshipStorage::joinTable) continue;
    const ObjectIDs added = derived.added.ids();
    const ObjectIDs removed = derived.removed.ids();
    const RelationshipDescription& inverse = *each->inverseRelationship;
    for (const ObjectID& id : added) unlink(*objectFor(id), inverse, object.id_);
    for (const ObjectID& id : removed) link(*objectFor(id), inverse, object.id_);
    derived.dropChanges();
  }
}

void ObjectGraph::merge(const ObjectIDs& inserted, const ObjectIDs& updated,
                        const ObjectIDs& deleted) {
  ObjectIDs toRead;
  const auto read = [&](const ObjectID& id) {
    const ManagedObjectPtr object = registered(id);
    if (object == nullptr || object->isDeleted()) return;
    for (DerivedRelationship& derived : object->derived_) derived.stored.reset();
    if (!object->isFault()) toRead.push_back(id);
  };
  for (const ObjectID& id : inserted) read(id);
  for (const ObjectID& id : updated) read(id);
  for (const ObjectID& id : deleted) {
    const ManagedObjectPtr object = registered(id);
    if (object == nullptr) continue;
    ObjectIDs members;  // rows that the deletion may have reached without telling
    for (const DerivedRelationship& derived : object->derived_) {
      if (derived.stored) std::ranges::copy(derived.stored->ids(), std::back_inserter(members));
    }
    for (const ObjectID& member : members) read(member);
    if (object->state_ != State::gone) vanish(*object);
    registry_.erase(id);
  }
  RowCollector collector;
  if (!toRead.empty()) ground_()->rows(toRead, collector);
  std::unordered_set<ObjectID> existing;
  for (Row& row : collector.rows) {
    existing.insert(row.id);
    const ManagedObjectPtr object = registered(row.id);
    if (object != nullptr) takeOver(*object, std::move(row));
  }
  for (const ObjectID& id : toRead) {
    const ManagedObjectPtr object = registered(id);
    if (object != nullptr && !existing.contains(id)) vanish(*object);
  }
}

}  // namespace zenivo
