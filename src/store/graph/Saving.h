// Saving a context's changes, and dropping them.

#pragma once

#include "store/file/ObjectSource.h"
#include "store/graph/ManagedObject.h"
#include "store/graph/SaveNotification.h"

namespace zenivo {

class ObjectGraph;

/// Changes go out as one request and come back as what became of it; until then nothing in
/// the context changes, so that a save that fails leaves it as it was.
class Saving {
 public:
  explicit Saving(ObjectGraph& graph) : graph_(graph) {}

  bool save(Error* error);
  void rollback();

 private:
  using State = ManagedObject::State;

  bool validate(Error* error) const;
  SaveRequest request();
  static std::vector<PropertyChange> rowChanges(const ManagedObject& object);
  void addRelationshipChanges(ManagedObject& object, SaveRequest& request);
  SaveNotification notification() const;
  void addCascaded(SaveNotification& saved, const ObjectIDs& cascaded);
  void addStripped(SaveNotification& saved, const ObjectIDs& stripped);
  void settle(SaveOutcome outcome);
  void settleObject(ManagedObject& object, const SaveOutcome& outcome);

  ObjectGraph& graph_;
};

}  // namespace zenivo
