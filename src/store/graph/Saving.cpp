#include "store/graph/Saving.h"

#include <algorithm>

#include "foundation/NotificationCenter.h"
#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {
namespace {

/// Of the two ends of a many-to-many relationship the one that tells of its changes.
bool tellsMembers(const RelationshipDescription& relationship) {
  const RelationshipDescription& inverse = *relationship.inverseRelationship;
  return std::pair(relationship.entity->name(), relationship.name) <
         std::pair(inverse.entity->name(), inverse.name);
}

ObjectIDs identitiesOf(const ManagedObjects& objects) {
  ObjectIDs ids;
  ids.reserve(objects.size());
  for (const ManagedObjectPtr& object : objects) ids.push_back(object->objectID());
  return ids;
}

}  // namespace

bool Saving::save(Error* error) {
  graph_.identities().adoptPermanentIDs();
  if (!graph_.context().hasChanges()) return true;
  defaultCenter().postNotificationName(kManagedObjectContextWillSaveNotification, &graph_.context(),
                                       notification());
  if (!validate(error)) return false;
  SaveOutcome outcome = graph_.ground()->save(request());
  SaveNotification saved = notification();
  const ObjectIDs cascaded = std::move(outcome.cascaded);
  const ObjectIDs stripped = std::move(outcome.stripped);
  settle(std::move(outcome));
  saved.insertedObjectIDs = identitiesOf(saved.insertedObjects);
  addStripped(saved, stripped);
  addCascaded(saved, cascaded);
  const ManagedObjects deleted = saved.deletedObjects;
  defaultCenter().postNotificationName(kManagedObjectContextDidSaveNotification, &graph_.context(),
                                       std::move(saved));
  for (const ManagedObjectPtr& object : deleted) object->context_ = nullptr;
  return true;
}

bool Saving::validate(Error* error) const {
  std::vector<Error> failures;
  const ManagedObjects objects = graph_.changes().all();  // a validation may change other objects
  for (const ManagedObjectPtr& object : objects) {
    Error failure;
    bool valid = true;
    if (object->state_ == State::inserted) valid = object->validateForInsert(&failure);
    if (object->isUpdated()) valid = object->validateForUpdate(&failure);
    if (object->state_ == State::deleted) valid = object->validateForDelete(&failure);
    if (!valid) failures.push_back(std::move(failure));
  }
  if (failures.empty()) return true;
  if (failures.size() == 1) return fail(error, failures.front());
  Error several = makeStoreError(StoreErrorCode::validationMultiple,
                                 std::to_string(failures.size()) + " objects are not valid");
  several.underlying = std::move(failures);
  return fail(error, std::move(several));
}

SaveNotification Saving::notification() const {
  SaveNotification about{.insertedObjects = graph_.context().insertedObjects(),
                         .updatedObjects = graph_.context().updatedObjects(),
                         .deletedObjects = graph_.context().deletedObjects(),
                         .insertedObjectIDs = {},
                         .updatedObjectIDs = {},
                         .deletedObjectIDs = {}};
  about.insertedObjectIDs = identitiesOf(about.insertedObjects);
  about.updatedObjectIDs = identitiesOf(about.updatedObjects);
  about.deletedObjectIDs = identitiesOf(about.deletedObjects);
  return about;
}

/// What the store deleted along, without this context's knowing.
void Saving::addCascaded(SaveNotification& saved, const ObjectIDs& cascaded) {
  for (const ObjectID& id : cascaded) {
    const ManagedObjectPtr object = graph_.objectFor(id);
    if (object->state_ != State::gone) graph_.vanish(*object);
    graph_.registry().forget(id);
    std::erase(saved.updatedObjects, object);
    std::erase(saved.updatedObjectIDs, id);
    saved.deletedObjects.push_back(object);
    saved.deletedObjectIDs.push_back(id);
  }
}

/// What lost a partner to an object of this save, without this context's knowing.
void Saving::addStripped(SaveNotification& saved, const ObjectIDs& stripped) {
  for (const ObjectID& id : stripped) {
    const bool isTold =
        std::ranges::find(saved.updatedObjectIDs, id) != saved.updatedObjectIDs.end() ||
        std::ranges::find(saved.deletedObjectIDs, id) != saved.deletedObjectIDs.end();
    if (isTold) continue;
    saved.updatedObjects.push_back(graph_.objectFor(id));
    saved.updatedObjectIDs.push_back(id);
  }
}

std::vector<PropertyChange> Saving::rowChanges(const ManagedObject& object) {
  std::vector<PropertyChange> changes;
  for (const ManagedObject::OldValue& old : object.oldValues_) {
    changes.push_back({old.property, old.value, object.values_[old.property->index]});
  }
  return changes;
}

SaveRequest Saving::request() {
  SaveRequest request{.mergePolicy = graph_.context().mergePolicy()};
  const ManagedObjects objects = graph_.changes().all();
  for (const ManagedObjectPtr& object : objects) {
    switch (object->state_) {
      case State::inserted:
        request.inserted.push_back({object->id_, &object->values_});
        addRelationshipChanges(*object, request);
        break;
      case State::updated:
        if (!object->oldValues_.empty()) {
          request.updated.push_back(
              {object->id_, object->version_, rowChanges(*object), &object->values_});
        }
        addRelationshipChanges(*object, request);
        break;
      case State::deleted:
        request.deleted.push_back(
            {object->id_, object->isFault() ? kAnyVersion : object->version_, rowChanges(*object)});
        break;
      case State::clean:
      case State::gone:
        break;
    }
  }
  return request;
}

void Saving::addRelationshipChanges(ManagedObject& object, SaveRequest& request) {
  if (object.derived_.empty()) return;
  for (const RelationshipDescription* each : object.entity_->derivedRelationships()) {
    DerivedRelationship& derived = object.derived(*each);
    if (!derived.hasChanges()) continue;
    const auto isDeleted = [this](const ObjectID& id) {
      const ManagedObjectPtr member = graph_.registry().find(id);
      return member != nullptr && member->isDeleted();
    };
    if (each->storage == RelationshipStorage::joinTable && tellsMembers(*each)) {
      MemberChange change{object.id_, each, derived.added.ids(), derived.removed.ids()};
      std::erase_if(change.removed, isDeleted);  // goes with the row
      request.members.push_back(std::move(change));
    }
    const bool placesMembers = !derived.added.empty() || derived.order.has_value();
    if (each->isOrdered() && placesMembers) {
      request.orders.push_back({object.id_, each, graph_.relationships().members(object, *each)});
    }
  }
}

void Saving::settle(SaveOutcome outcome) {
  graph_.identities().renumber(outcome.permanentIDs);
  for (const ManagedObjectPtr& object : graph_.changes().take()) settleObject(*object, outcome);
  for (const ObjectID& id : outcome.vanished) {
    if (const ManagedObjectPtr object = graph_.registry().find(id)) graph_.vanish(*object);
  }
  for (Row& row : outcome.merged) {
    if (const ManagedObjectPtr object = graph_.registry().find(row.id))
      graph_.merging().takeOver(*object, std::move(row));
  }
}

void Saving::settleObject(ManagedObject& object, const SaveOutcome& outcome) {
  if (object.state_ == State::deleted) {
    graph_.registry().forget(object.id_);
    object.state_ = State::gone;
  }
  if (object.state_ == State::gone) return;
  const bool wasInserted = object.state_ == State::inserted;
  for (DerivedRelationship& derived : object.derived_) {
    if (wasInserted && !derived.stored) derived.stored.emplace();
    if (derived.stored && derived.hasChanges()) derived.stored = ObjectIDSet(derived.members());
    derived.dropChanges();
  }
  object.oldValues_.clear();
  object.state_ = State::clean;
  const auto version = outcome.versions.find(object.id_);
  if (version != outcome.versions.end()) object.version_ = version->second;
  // Saved to a parent, the object gets its permanent identity later.
  if (wasInserted && object.id_.isTemporaryID()) graph_.identities().awaitPermanentID(object);
}

void Saving::rollback() {
  for (const ManagedObjectPtr& object : graph_.changes().take()) {
    for (DerivedRelationship& derived : object->derived_) derived.dropChanges();
    if (object->state_ == State::inserted) graph_.leave(*object);
    if (object->state_ == State::gone) continue;
    for (ManagedObject::OldValue& old : object->oldValues_) {
      object->values_[old.property->index] = std::move(old.value);
    }
    object->oldValues_.clear();
    object->state_ = State::clean;
  }
}

}  // namespace zenivo
