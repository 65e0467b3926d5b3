#include "store/graph/Deletions.h"

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {

/// `reachedBy` is the relationship of an owner by whose rule the object goes.
void Deletions::deleteObject(ManagedObject& object, const RelationshipDescription* reachedBy) {
  if (object.isDeleted()) return;
  const ManagedObjectPtr alive = object.shared_from_this();
  // A fault whose one relationship leads to the owner that goes too need not be
  // fetched to be deleted: its values may be large.
  const bool isLeaf = reachedBy != nullptr && object.entity_->relationships().size() == 1 &&
                      reachedBy->storage == RelationshipStorage::inverseColumn;
  if (!isLeaf) graph_.realise(object);
  if (object.isDeleted()) return;  // the row was gone
  struct Reached {
    const RelationshipDescription* relationship;
    ObjectIDs ids;
  };
  std::vector<Reached> reached;
  for (const RelationshipDescription* each : object.entity_->relationships()) {
    if (isLeaf) break;
    if (each->storage != RelationshipStorage::column) {
      reached.push_back({each, graph_.relationships().members(object, *each)});
    } else if (const ObjectID to = graph_.relationships().toOne(object, *each)) {
      reached.push_back({each, {to}});
    }
  }
  const bool wasInserted = object.state_ == State::inserted;
  graph_.relationships().withdrawAll(object);
  graph_.changes().add(object);
  object.state_ = State::deleted;
  if (wasInserted) {
    // Without a row there is nothing to tell the others of.
    object.values_.assign(object.entity_->properties().size(), Value());
  } else {
    graph_.relationships().contributeAll(object);
  }
  for (const auto& [relationship, ids] : reached) {
    for (const ObjectID& id : ids) letGo(object, *relationship, id);
  }
  if (!wasInserted) return;
  graph_.changes().remove(object);
  graph_.leave(object);
}

/// What a deletion means for one object that a relationship of the deleted one led to.
void Deletions::letGo(ManagedObject& deleted, const RelationshipDescription& relationship,
                      const ObjectID& id) {
  const ManagedObjectPtr other = graph_.objectFor(id);
  const RelationshipDescription& inverse = *relationship.inverseRelationship;
  if (relationship.storage == RelationshipStorage::joinTable) {
    graph_.relationships().unlink(deleted, relationship, id);
    graph_.relationships().unlink(*other, inverse, deleted.id_);
  }
  if (relationship.deleteRule == DeleteRule::cascade) {
    deleteObject(*other, &relationship);
  } else if (relationship.storage == RelationshipStorage::inverseColumn) {
    graph_.relationships().setColumn(*other, inverse, {});
  }
}

/// Others may have given members to an object after it was deleted here.
void Deletions::letGoOfNewMembers(ManagedObject& deleted) {
  for (const RelationshipDescription* each : deleted.entity_->relationships()) {
    const bool goesAlong = each->storage == RelationshipStorage::column &&
                           each->deleteRule == DeleteRule::cascade && !deleted.isFault();
    const ObjectID to = goesAlong ? deleted.values_[each->index].objectID() : ObjectID();
    if (to) deleteObject(*graph_.objectFor(to), each);
  }
  for (const RelationshipDescription* each : deleted.entity_->derivedRelationships()) {
    graph_.fetchMembers({deleted.shared_from_this()}, *each);
    graph_.merging().dropChangesOfOthers(deleted, *each);
    const ObjectIDs members = deleted.derived(*each).stored->ids();
    for (const ObjectID& id : members) {
      const bool isKnown = deleted.derived(*each).removed.contains(id);
      if (!isKnown && !graph_.objectFor(id)->isDeleted()) letGo(deleted, *each, id);
    }
  }
}

void Deletions::undelete(ManagedObject& object) {
  if (object.state_ != State::deleted) return;
  graph_.relationships().withdrawAll(object);
  object.state_ = State::updated;
  graph_.relationships().contributeAll(object);
}

}  // namespace zenivo
