// Taking over what others saved.

#pragma once

#include "store/file/ObjectSource.h"
#include "store/graph/ManagedObject.h"

namespace zenivo {

class ObjectGraph;

/// What others saved becomes what the context knows as committed; its own unsaved changes
/// stay on top.
class Merging {
 public:
  explicit Merging(ObjectGraph& graph) : graph_(graph) {}

  void refresh(ManagedObject& object, bool mergeChanges);
  void merge(const ObjectIDs& inserted, const ObjectIDs& updated, const ObjectIDs& deleted);
  /// The row becomes what the object knows as committed.
  void takeOver(ManagedObject& object, Row&& row);
  void dropChangesOfOthers(ManagedObject& object, const RelationshipDescription& relationship);

 private:
  using State = ManagedObject::State;

  void keepPartners(ManagedObject& object);
  void takeOverColumn(ManagedObject& object, const RelationshipDescription& column, Value& known,
                      Value&& theirs);
  void revertOwnChanges(ManagedObject& object);
  void revertMembers(ManagedObject& object, const RelationshipDescription& relationship);

  ObjectGraph& graph_;
};

}  // namespace zenivo
