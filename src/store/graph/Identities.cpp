#include "store/graph/Identities.h"

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"

namespace zenivo {

/// The identity under which this context knows an object that a child names.
ObjectID Identities::ownID(const ObjectID& id) const {
  const auto found = id.isTemporaryID() ? permanentIDs_.find(id) : permanentIDs_.end();
  return found != permanentIDs_.end() ? found->second : id;
}

/// Objects that this context holds get theirs here too; those of the child alone pass on.
ObjectIDs Identities::permanentIDsForChild(const ObjectIDs& temporary) {
  const ObjectIDs permanent = graph_.ground()->obtainPermanentIDs(temporary);
  IDMap permanentIDs;
  for (std::size_t i = 0; i < temporary.size(); ++i) permanentIDs[temporary[i]] = permanent[i];
  renumber(permanentIDs);
  return permanent;
}

void Identities::renumber(const IDMap& permanentIDs) {
  if (permanentIDs.empty()) return;
  if (remembersIDs_) permanentIDs_.insert(permanentIDs.begin(), permanentIDs.end());
  for (const auto& [temporary, permanent] : permanentIDs) {
    const ManagedObjectPtr object = graph_.registry().find(temporary);
    if (object == nullptr) continue;
    graph_.registry().forget(temporary);
    object->id_ = permanent;
    graph_.registry().enroll(permanent, object);
  }
  for (const ManagedObjectPtr& object : graph_.changes().all())
    renumberReferences(*object, permanentIDs);
}

void Identities::renumberReferences(ManagedObject& object, const IDMap& permanentIDs) {
  if (!object.isFault()) {
    for (const RelationshipDescription* each : object.entity_->relationships()) {
      if (each->storage != RelationshipStorage::column) continue;
      Value& value = object.values_[each->index];
      const auto found = permanentIDs.find(value.objectID());
      if (found != permanentIDs.end()) value = found->second;
    }
  }
  for (DerivedRelationship& derived : object.derived_) derived.replace(permanentIDs);
}

void Identities::obtainPermanentIDs(const ManagedObjects& objects) {
  ObjectIDSet wanted;
  for (const ManagedObjectPtr& object : objects) {
    if (object->id_.isTemporaryID()) wanted.insert(object->id_);
  }
  const ObjectIDs& temporary = wanted.ids();
  if (temporary.empty()) return;
  const ObjectIDs permanent = graph_.ground()->obtainPermanentIDs(temporary);
  IDMap permanentIDs;
  for (std::size_t i = 0; i < temporary.size(); ++i) permanentIDs[temporary[i]] = permanent[i];
  renumber(permanentIDs);
}

void Identities::adoptPermanentIDs() {
  ObjectIDs temporary;
  std::erase_if(saved_, [&](const std::weak_ptr<ManagedObject>& weak) {
    const ManagedObjectPtr object = weak.lock();
    const bool isWaiting = object != nullptr && object->id_.isTemporaryID();
    if (isWaiting) temporary.push_back(object->id_);
    return !isWaiting;
  });
  if (temporary.empty()) return;
  const IDMap permanentIDs = graph_.ground()->permanentIDsFor(temporary);
  if (permanentIDs.empty()) return;
  renumber(permanentIDs);
  for (const ManagedObjectPtr& object : graph_.registry().all())
    renumberReferences(*object, permanentIDs);
}

void Identities::clear() {
  permanentIDs_.clear();
  saved_.clear();
}

}  // namespace zenivo
