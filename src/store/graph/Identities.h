// Temporary identities and the permanent ones that follow them.

#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "store/graph/ManagedObject.h"

namespace zenivo {

class ObjectGraph;

/// An inserted object has a temporary identity until it is saved to a store; saved to a
/// parent context, until that one saves and its child asks for the permanent one.
class Identities {
 public:
  explicit Identities(ObjectGraph& graph) : graph_(graph) {}

  void obtainPermanentIDs(const ManagedObjects& objects);
  /// Takes over the permanent identities that objects saved to the parent got there.
  void adoptPermanentIDs();
  void renumber(const std::unordered_map<ObjectID, ObjectID>& permanentIDs);
  /// The object was saved to the parent under its temporary identity.
  void awaitPermanentID(ManagedObject& object) { saved_.push_back(object.weak_from_this()); }
  void clear();

  // For children, which go on with temporary identities that this context has replaced.
  void remembersTemporaryIDs() { remembersIDs_ = true; }
  /// The identity under which this context knows an object that a child names.
  ObjectID ownID(const ObjectID& id) const;
  ObjectIDs permanentIDsForChild(const ObjectIDs& temporary);

 private:
  using State = ManagedObject::State;

  using IDMap = std::unordered_map<ObjectID, ObjectID>;

  void renumberReferences(ManagedObject& object, const IDMap& permanentIDs);

  ObjectGraph& graph_;
  bool remembersIDs_ = false;
  IDMap permanentIDs_;                               // by the temporary ones that children know
  std::vector<std::weak_ptr<ManagedObject>> saved_;  // to the parent, under temporary identities
};

}  // namespace zenivo
