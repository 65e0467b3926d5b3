// A graph as the ground of child contexts: rows of its objects, and their saves.

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {

namespace {

[[noreturn]] void refuse(const ObjectID& id, const char* what) {
  Error error =
      makeStoreError(StoreErrorCode::conflict, "an object of entity " + id.entity().name() + " " +
                                                   what + " in the parent context");
  error.userInfo["object"] = id.URIRepresentation();
  throw StoreFailure(std::move(error));
}

}  // namespace

/// The identity under which this context knows an object that a child names.
ObjectID ObjectGraph::ownID(const ObjectID& id) const {
  const auto found = id.isTemporaryID() ? permanentIDs_.find(id) : permanentIDs_.end();
  return found != permanentIDs_.end() ? found->second : id;
}

std::vector<Row> ObjectGraph::rowsForChild(const ObjectIDs& ids) {
  ObjectIDs own;
  for (const ObjectID& id : ids) own.push_back(ownID(id));
  const ManagedObjects objects = realised(own);
  std::vector<Row> rows;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (objects[i]->isDeleted()) continue;
    rows.push_back({.id = ids[i], .version = 0, .values = objects[i]->values_});
  }
  return rows;
}

ObjectIDs ObjectGraph::membersForChild(const ObjectID& owner,
                                       const RelationshipDescription& relationship) {
  const ManagedObjectPtr object = objectFor(ownID(owner));
  return object->isDeleted() ? ObjectIDs() : members(*object, relationship);
}

/// Objects that this context holds get theirs here too; those of the child alone pass on.
ObjectIDs ObjectGraph::permanentIDsForChild(const ObjectIDs& temporary) {
  const ObjectIDs permanent = ground_()->obtainPermanentIDs(temporary);
  IDMap permanentIDs;
  for (std::size_t i = 0; i < temporary.size(); ++i) permanentIDs[temporary[i]] = permanent[i];
  renumber(permanentIDs);
  return permanent;
}

SaveOutcome ObjectGraph::takeSave(const SaveRequest& request) {
  if (request.mergePolicy == MergePolicy::error) refuseConflicts(request);
  SaveOutcome outcome;
  for (const InsertedRow& row : request.inserted) takeInsertion(row.id, *row.values);
  for (const InsertedRow& row : request.inserted) takeColumns(row.id, *row.values);
  for (const UpdatedRow& row : request.updated) takeUpdate(row, request.mergePolicy, outcome);
  for (const MemberChange& change : request.members) {
    const ManagedObjectPtr owner = objectFor(change.owner);
    for (const ObjectID& id : change.removed) remove(*owner, *change.relationship, id);
    for (const ObjectID& id : change.added) add(*owner, *change.relationship, id);
  }
  for (const OrderChange& change : request.orders) {
    const ManagedObjectPtr owner = objectFor(change.owner);
    // The members that came, come as the child has them.
    ObjectIDSet& added = owner->derived(*change.relationship).added;
    for (const ObjectID& member : change.members) {
      if (added.erase(member)) added.insert(member);
    }
    setOrder(*owner, *change.relationship, change.members);
  }
  for (const DeletedRow& row : request.deleted) {
    const ManagedObjectPtr object = objectFor(row.id);
    for (const PropertyChange& change : row.changes) {
      const auto* column = asRelationship(change.property);
      if (column != nullptr) setColumn(*object, *column, {});
    }
    deleteObject(*object);
  }
  return outcome;
}

/// Nothing is taken unless everything can be.
void ObjectGraph::refuseConflicts(const SaveRequest& request) {
  for (const UpdatedRow& row : request.updated) {
    const ManagedObjectPtr object = realised({row.id}).front();
    if (object->isDeleted()) refuse(row.id, "was deleted");
    for (const PropertyChange& change : row.changes) {
      if (object->values_[change.property->index] != change.before) {
        refuse(row.id, "was changed");
      }
    }
  }
}

void ObjectGraph::takeInsertion(const ObjectID& id, const std::vector<Value>& values) {
  const ManagedObjectPtr object = insertWithID(id);
  for (const AttributeDescription* attribute : id.entity().attributes()) {
    object->values_[attribute->index] = values[attribute->index];
  }
}

void ObjectGraph::takeColumns(const ObjectID& id, const std::vector<Value>& values) {
  for (const RelationshipDescription* each : id.entity().relationships()) {
    if (each->storage != RelationshipStorage::column) continue;
    setColumn(*objectFor(id), *each, values[each->index].objectID());
  }
}

void ObjectGraph::takeUpdate(const UpdatedRow& row, MergePolicy policy, SaveOutcome& outcome) {
  const bool parentTrumps = policy == MergePolicy::mergeByPropertyStoreTrump;
  const ManagedObjectPtr object = realised({row.id}).front();
  if (object->isDeleted() && parentTrumps) return outcome.vanished.push_back(row.id);
  if (object->state_ == State::gone) {
    takeInsertion(row.id, *row.values);
    return takeColumns(row.id, *row.values);
  }
  undelete(*object);
  bool settled = false;
  for (const PropertyChange& change : row.changes) {
    const bool changedHere = object->values_[change.property->index] != change.before;
    settled = settled || changedHere;
    if (changedHere && parentTrumps) continue;
    if (const auto* attribute = asAttribute(change.property)) {
      setAttribute(*object, *attribute, change.after);
    } else {
      setColumn(*object, *asRelationship(change.property), change.after.objectID());
    }
  }
  if (settled) {
    outcome.merged.push_back({.id = row.id, .version = 0, .values = object->values_});
  }
}

}  // namespace zenivo
