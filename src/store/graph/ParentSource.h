// A context as the ground that its children stand on.

#pragma once

#include <memory>

#include "store/file/ObjectSource.h"

namespace zenivo {

class ManagedObjectContext;

/// Reads and writes the objects of a parent context, on the parent's queue.  Conflicts
/// are found property by property: one that the parent changed since the child read it.
class ParentSource : public ObjectSource {
 public:
  explicit ParentSource(std::shared_ptr<ManagedObjectContext> parent);

  void fetch(const FetchRequest& request, RowReceiver& receiver) override;
  std::size_t count(const FetchRequest& request) override;
  void rows(const ObjectIDs& ids, RowReceiver& receiver) override;
  std::vector<ObjectIDs> destinations(const ObjectIDs& owners,
                                      const RelationshipDescription& relationship) override;
  SaveOutcome save(const SaveRequest& request) override;
  ObjectIDs obtainPermanentIDs(const ObjectIDs& temporary) override;
  std::unordered_map<ObjectID, ObjectID> permanentIDsFor(const ObjectIDs& temporary) override;

 private:
  const std::shared_ptr<ManagedObjectContext> parent_;
};

}  // namespace zenivo
