#include "store/graph/ChildRequests.h"

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

std::vector<Row> ChildRequests::rowsForChild(const ObjectIDs& ids) {
  ObjectIDs own;
  for (const ObjectID& id : ids) own.push_back(graph_.identities().ownID(id));
  const ManagedObjects objects = graph_.realised(own);
  std::vector<Row> rows;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    if (objects[i]->isDeleted()) continue;
    rows.push_back({.id = ids[i], .version = 0, .values = objects[i]->values_});
  }
  return rows;
}

ObjectIDs ChildRequests::membersForChild(const ObjectID& owner,
                                         const RelationshipDescription& relationship) {
  const ManagedObjectPtr object = graph_.objectFor(graph_.identities().ownID(owner));
  return object->isDeleted() ? ObjectIDs() : graph_.relationships().members(*object, relationship);
}

SaveOutcome ChildRequests::takeSave(const SaveRequest& request) {
  if (request.mergePolicy == MergePolicy::error) refuseConflicts(request);
  SaveOutcome outcome;
  for (const InsertedRow& row : request.inserted) takeInsertion(row.id, *row.values);
  for (const InsertedRow& row : request.inserted) takeColumns(row.id, *row.values);
  for (const UpdatedRow& row : request.updated) takeUpdate(row, request.mergePolicy, outcome);
  for (const MemberChange& change : request.members) {
    const ManagedObjectPtr owner = graph_.objectFor(change.owner);
    for (const ObjectID& id : change.removed)
      graph_.relationships().remove(*owner, *change.relationship, id);
    for (const ObjectID& id : change.added)
      graph_.relationships().add(*owner, *change.relationship, id);
  }
  for (const OrderChange& change : request.orders) {
    const ManagedObjectPtr owner = graph_.objectFor(change.owner);
    // The members that came, come as the child has them.
    ObjectIDSet& added = owner->derived(*change.relationship).added;
    for (const ObjectID& member : change.members) {
      if (added.erase(member)) added.insert(member);
    }
    graph_.relationships().setOrder(*owner, *change.relationship, change.members);
  }
  for (const DeletedRow& row : request.deleted) {
    const ManagedObjectPtr object = graph_.objectFor(row.id);
    for (const PropertyChange& change : row.changes) {
      const auto* column = asRelationship(change.property);
      if (column != nullptr) graph_.relationships().setColumn(*object, *column, {});
    }
    graph_.deletions().deleteObject(*object);
  }
  return outcome;
}

/// Nothing is taken unless everything can be.
void ChildRequests::refuseConflicts(const SaveRequest& request) {
  for (const UpdatedRow& row : request.updated) {
    const ManagedObjectPtr object = graph_.realised({row.id}).front();
    if (object->isDeleted()) refuse(row.id, "was deleted");
    for (const PropertyChange& change : row.changes) {
      if (object->values_[change.property->index] != change.before) {
        refuse(row.id, "was changed");
      }
    }
  }
}

void ChildRequests::takeInsertion(const ObjectID& id, const std::vector<Value>& values) {
  const ManagedObjectPtr object = graph_.insertWithID(id);
  for (const AttributeDescription* attribute : id.entity().attributes()) {
    object->values_[attribute->index] = values[attribute->index];
  }
}

void ChildRequests::takeColumns(const ObjectID& id, const std::vector<Value>& values) {
  for (const RelationshipDescription* each : id.entity().relationships()) {
    if (each->storage != RelationshipStorage::column) continue;
    graph_.relationships().setColumn(*graph_.objectFor(id), *each, values[each->index].objectID());
  }
}

void ChildRequests::takeUpdate(const UpdatedRow& row, MergePolicy policy, SaveOutcome& outcome) {
  const bool parentTrumps = policy == MergePolicy::mergeByPropertyStoreTrump;
  const ManagedObjectPtr object = graph_.realised({row.id}).front();
  if (object->isDeleted() && parentTrumps) return outcome.vanished.push_back(row.id);
  if (object->state_ == State::gone) {
    takeInsertion(row.id, *row.values);
    return takeColumns(row.id, *row.values);
  }
  graph_.deletions().undelete(*object);
  bool settled = false;
  for (const PropertyChange& change : row.changes) {
    const bool changedHere = object->values_[change.property->index] != change.before;
    settled = settled || changedHere;
    if (changedHere && parentTrumps) continue;
    if (const auto* attribute = asAttribute(change.property)) {
      graph_.relationships().setAttribute(*object, *attribute, change.after);
    } else {
      graph_.relationships().setColumn(*object, *asRelationship(change.property),
                                       change.after.objectID());
    }
  }
  if (settled) {
    outcome.merged.push_back({.id = row.id, .version = 0, .values = object->values_});
  }
}

}  // namespace zenivo
