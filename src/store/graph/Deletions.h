// Deleting objects of a context, with what their delete rules reach.

#pragma once

#include "store/graph/ManagedObject.h"

namespace zenivo {

class ObjectGraph;

/// A deleted object stays among the changed ones until it is saved; an inserted one leaves
/// at once.
class Deletions {
 public:
  explicit Deletions(ObjectGraph& graph) : graph_(graph) {}

  /// `reachedBy` is the relationship of an owner by whose rule the object goes.
  void deleteObject(ManagedObject& object, const RelationshipDescription* reachedBy = nullptr);
  /// Takes a deletion back; what its delete rules reached stays deleted.
  void undelete(ManagedObject& object);
  /// Others may have given members to an object after it was deleted here.
  void letGoOfNewMembers(ManagedObject& deleted);

 private:
  using State = ManagedObject::State;

  void letGo(ManagedObject& deleted, const RelationshipDescription& relationship,
             const ObjectID& id);

  ObjectGraph& graph_;
};

}  // namespace zenivo
