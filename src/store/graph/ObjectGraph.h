// The objects of one context and how they hang together.

#pragma once

#include <functional>
#include <memory>

#include "store/file/ObjectSource.h"
#include "store/graph/ChangedObjects.h"
#include "store/graph/ChildRequests.h"
#include "store/graph/Deletions.h"
#include "store/graph/Fetching.h"
#include "store/graph/Identities.h"
#include "store/graph/Merging.h"
#include "store/graph/ObjectRegistry.h"
#include "store/graph/Relationships.h"
#include "store/graph/Saving.h"

namespace zenivo {

/// Faults that came together and are fetched together.
struct FaultBatch {
  ObjectIDs ids;
  ObjectID owner;  ///< whose relationship they came from; none for a fetch
  const RelationshipDescription* relationship = nullptr;
};

/// The workings of a context, without its queue and its error reporting: failures throw.
/// Makes objects, brings them their values and lets them go; everything else is the work of
/// its parts.  docs/store-graph.md tells what always holds.
class ObjectGraph {
 public:
  /// Gives what the context stands on; throws StoreFailure when there is nothing.
  using Ground = std::function<std::shared_ptr<ObjectSource>()>;

  ObjectGraph(ManagedObjectContext& context, Ground ground)
      : context_(context), ground_(std::move(ground)) {}
  ~ObjectGraph() { reset(); }
  ObjectGraph(const ObjectGraph&) = delete;
  ObjectGraph& operator=(const ObjectGraph&) = delete;

  ManagedObjectContext& context() { return context_; }
  std::shared_ptr<ObjectSource> ground() const { return ground_(); }

  ObjectRegistry& registry() { return registry_; }
  ChangedObjects& changes() { return changes_; }
  Identities& identities() { return identities_; }
  Relationships& relationships() { return relationships_; }
  Deletions& deletions() { return deletions_; }
  Fetching& fetching() { return fetching_; }
  Saving& saving() { return saving_; }
  Merging& merging() { return merging_; }
  ChildRequests& children() { return children_; }

  /// The object, made as a fault when it is not in memory.
  ManagedObjectPtr objectFor(const ObjectID& id);
  ManagedObjectPtr insert(const EntityDescription& entity);
  /// An inserted object without values.
  ManagedObjectPtr insertWithID(const ObjectID& id);
  /// The object is none of this context's any more.
  void leave(ManagedObject& object);
  /// The object's row is gone: it stays as one that was deleted, with nothing in it.
  void vanish(ManagedObject& object);
  /// Forgets everything.
  void reset();

  /// Fetches the object's values, with those of faults that came with it.
  void realise(ManagedObject& object);
  /// The objects with their values, fetched at once; those without a row as deleted.
  ManagedObjects realised(const ObjectIDs& ids);
  void turnIntoFault(ManagedObject& object);
  /// The row's values become the fault's.
  void adopt(ManagedObject& object, Row&& row);

  /// The derived relationship with its stored members there.
  DerivedRelationship& fetched(ManagedObject& object, const RelationshipDescription& relationship);
  void fetchMembers(const ManagedObjects& owners, const RelationshipDescription& relationship);

 private:
  using State = ManagedObject::State;

  ManagedObjectPtr make(const EntityDescription& entity, const ObjectID& id);
  ObjectIDs idsToRealiseWith(const ManagedObject& object) const;

  ManagedObjectContext& context_;
  const Ground ground_;
  ObjectRegistry registry_;
  ChangedObjects changes_;
  Identities identities_{*this};
  Relationships relationships_{*this};
  Deletions deletions_{*this};
  Fetching fetching_{*this};
  Saving saving_{*this};
  Merging merging_{*this};
  ChildRequests children_{*this};
};

}  // namespace zenivo
