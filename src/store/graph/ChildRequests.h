// A context as the ground of child contexts: rows of its objects, and their saves.

#pragma once

#include <vector>

#include "store/file/ObjectSource.h"
#include "store/graph/ManagedObject.h"

namespace zenivo {

class ObjectGraph;

/// What a child reads are this context's present values; what it saves become its changes.
class ChildRequests {
 public:
  explicit ChildRequests(ObjectGraph& graph) : graph_(graph) {}

  std::vector<Row> rowsForChild(const ObjectIDs& ids);
  ObjectIDs membersForChild(const ObjectID& owner, const RelationshipDescription& relationship);
  SaveOutcome takeSave(const SaveRequest& request);

 private:
  using State = ManagedObject::State;

  void refuseConflicts(const SaveRequest& request);
  void takeInsertion(const ObjectID& id, const std::vector<Value>& values);
  void takeColumns(const ObjectID& id, const std::vector<Value>& values);
  void takeUpdate(const UpdatedRow& row, MergePolicy policy, SaveOutcome& outcome);

  ObjectGraph& graph_;
};

}  // namespace zenivo
