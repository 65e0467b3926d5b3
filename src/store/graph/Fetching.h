// Fetching with unsaved changes.

#pragma once

#include <cstddef>
#include <string_view>

#include "store/graph/ManagedObject.h"
#include "store/predicates/FetchRequest.h"

namespace zenivo {

class ObjectGraph;

/// The answers of what the context stands on, put right by the context's own changes.
class Fetching {
 public:
  explicit Fetching(ObjectGraph& graph) : graph_(graph) {}

  ManagedObjects fetch(const FetchRequest& request);
  /// Fetches what the request wants along with these results.  To be held with them:
  /// the context does not hold objects without changes.
  ManagedObjects prefetch(const ManagedObjects& objects, const FetchRequest& request);
  ObjectIDs fetchIDs(const FetchRequest& request);
  std::size_t count(const FetchRequest& request);

 private:
  using State = ManagedObject::State;

  bool hasRelevantChanges(const FetchRequest& request, const EntityDescription& entity) const;
  bool dependsOnOtherChanges(const FetchRequest& request, const EntityDescription& entity) const;
  ManagedObjects fetchFromSource(const FetchRequest& request);
  ManagedObjects fetchWithChanges(const FetchRequest& request, const EntityDescription& entity);
  void sort(ManagedObjects& objects, const FetchRequest& request, const EntityDescription& entity);
  ManagedObjects fetchDestinations(const ManagedObjects& owners,
                                   const RelationshipDescription& relationship);
  const EntityDescription& entityNamed(std::string_view name) const;

  ObjectGraph& graph_;
};

}  // namespace zenivo
