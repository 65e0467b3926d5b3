#include "store/graph/Fetching.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <stdexcept>
#include <unordered_set>

#include "store/file/PersistentStoreCoordinator.h"
#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectCollector.h"
#include "store/graph/ObjectGraph.h"
#include "store/graph/PredicateEvaluator.h"
#include "store/predicates/BoundPredicate.h"

namespace zenivo {
namespace {

bool isWanted(const EntityDescription& entity, const FetchRequest& request,
              const EntityDescription& wanted) {
  return request.includesSubentities ? entity.isKindOfEntity(wanted) : &entity == &wanted;
}

/// Saved objects in the order of their keys, then unsaved ones as they came.
bool comesBefore(const ObjectID& a, const ObjectID& b) {
  if (a.isTemporaryID() != b.isTemporaryID()) return b.isTemporaryID();
  return a.isTemporaryID() ? a.key() > b.key() : a.key() < b.key();
}

template <class List>
void limit(List& results, const FetchRequest& request) {
  const std::size_t skipped = std::min(request.fetchOffset, results.size());
  results.erase(results.begin(), results.begin() + static_cast<std::ptrdiff_t>(skipped));
  if (request.fetchLimit != 0 && results.size() > request.fetchLimit) {
    results.resize(request.fetchLimit);
  }
}

/// Keeps identities alone.
class IdentityCollector : public RowReceiver {
 public:
  bool found(const ObjectID& id) override {
    ids.push_back(id);
    return false;
  }
  void take(Row&&) override {}
  ObjectIDs ids;
};

}  // namespace

ManagedObjects Fetching::fetchFromSource(const FetchRequest& request) {
  ObjectCollector collector(graph_);
  graph_.ground()->fetch(request, collector);
  collector.awaken();
  return std::move(collector.objects);
}

const EntityDescription& Fetching::entityNamed(std::string_view name) const {
  const EntityDescription* entity =
      graph_.context().persistentStoreCoordinator()->managedObjectModel()->entityNamed(name);
  if (entity == nullptr) {
    throw std::invalid_argument("there is no entity '" + std::string(name) + "'");
  }
  return *entity;
}

/// Whether unsaved changes may make the source's answer wrong.
bool Fetching::hasRelevantChanges(const FetchRequest& request,
                                  const EntityDescription& entity) const {
  if (!request.includesPendingChanges || graph_.changes().all().empty()) return false;
  return dependsOnOtherChanges(request, entity) ||
         std::ranges::any_of(graph_.changes().all(), [&](const ManagedObjectPtr& object) {
           return object->hasChanges() && isWanted(object->entity(), request, entity);
         });
}

/// Whether the answer depends on other changed objects than the results themselves.
bool Fetching::dependsOnOtherChanges(const FetchRequest& request,
                                     const EntityDescription& entity) const {
  std::set<const EntityDescription*> related;
  if (request.predicate) {
    BoundPredicate(request.predicate->root(), entity).addRelatedEntities(related);
  }
  for (const SortDescriptor& descriptor : request.sortDescriptors) {
    for (const RelationshipDescription* hop : resolveSortKeyPath(entity, descriptor.keyPath).hops) {
      related.insert(&hop->destinationEntity->rootEntity());
    }
  }
  return std::ranges::any_of(graph_.changes().all(), [&](const ManagedObjectPtr& object) {
    return object->hasChanges() && related.contains(&object->entity().rootEntity());
  });
}

ManagedObjects Fetching::fetch(const FetchRequest& request) {
  graph_.identities().adoptPermanentIDs();
  const EntityDescription& entity = entityNamed(request.entityName);
  return hasRelevantChanges(request, entity) ? fetchWithChanges(request, entity)
                                             : fetchFromSource(request);
}

/// The source's answer, put right: what was deleted goes, what was changed is asked
/// again, what was inserted is asked for the first time.
ManagedObjects Fetching::fetchWithChanges(const FetchRequest& request,
                                          const EntityDescription& entity) {
  FetchRequest broad = request;
  broad.fetchLimit = 0;
  broad.fetchOffset = 0;
  const bool askAll = dependsOnOtherChanges(request, entity);
  if (askAll) {
    broad.predicate.reset();
    broad.sortDescriptors.clear();
  }
  ManagedObjects candidates = fetchFromSource(broad);
  std::unordered_set<ObjectID> known;
  for (const ManagedObjectPtr& object : candidates) known.insert(object->objectID());
  for (const ManagedObjectPtr& object : graph_.changes().all()) {
    const bool isNew = object->hasChanges() && isWanted(object->entity(), request, entity) &&
                       known.insert(object->objectID()).second;
    if (isNew) candidates.push_back(object);
  }
  std::optional<BoundPredicate> bound;
  if (request.predicate) bound.emplace(request.predicate->root(), entity);
  std::erase_if(candidates, [&](const ManagedObjectPtr& object) {
    const bool asks = bound && (askAll || object->hasChanges());
    return object->isDeleted() || (asks && !meets(*bound, *object));
  });
  sort(candidates, request, entity);
  limit(candidates, request);
  return candidates;
}

void Fetching::sort(ManagedObjects& objects, const FetchRequest& request,
                    const EntityDescription& entity) {
  struct Keyed {
    std::vector<Value> keys;
    ManagedObjectPtr object;
  };
  std::vector<KeyPath> paths;
  for (const SortDescriptor& descriptor : request.sortDescriptors) {
    paths.push_back(resolveSortKeyPath(entity, descriptor.keyPath));
  }
  std::vector<Keyed> keyed;
  keyed.reserve(objects.size());
  for (ManagedObjectPtr& object : objects) {
    Keyed each{{}, std::move(object)};
    for (const KeyPath& path : paths) each.keys.push_back(valueAtKeyPath(path, *each.object));
    keyed.push_back(std::move(each));
  }
  std::ranges::sort(keyed, [&](const Keyed& a, const Keyed& b) {
    for (std::size_t i = 0; i < paths.size(); ++i) {
      const auto order = compareValues(a.keys[i], b.keys[i]);
      if (order != 0) return request.sortDescriptors[i].ascending ? order < 0 : order > 0;
    }
    return comesBefore(a.object->objectID(), b.object->objectID());
  });
  std::ranges::transform(keyed, objects.begin(),
                         [](Keyed& each) { return std::move(each.object); });
}

ObjectIDs Fetching::fetchIDs(const FetchRequest& request) {
  graph_.identities().adoptPermanentIDs();
  const EntityDescription& entity = entityNamed(request.entityName);
  FetchRequest identities = request;
  identities.includesPropertyValues = false;
  if (hasRelevantChanges(request, entity)) {
    ObjectIDs ids;
    for (const ManagedObjectPtr& object : fetchWithChanges(identities, entity)) {
      ids.push_back(object->objectID());
    }
    return ids;
  }
  IdentityCollector collector;
  graph_.ground()->fetch(identities, collector);
  return std::move(collector.ids);
}

std::size_t Fetching::count(const FetchRequest& request) {
  graph_.identities().adoptPermanentIDs();
  const bool changed = hasRelevantChanges(request, entityNamed(request.entityName));
  return changed ? fetchIDs(request).size() : graph_.ground()->count(request);
}

/// Fetches what the objects' relationships lead to, a whole relationship at a time.
ManagedObjects Fetching::prefetch(const ManagedObjects& objects, const FetchRequest& request) {
  ManagedObjects companions;
  for (const std::string& path : request.relationshipKeyPathsForPrefetching) {
    ManagedObjects at = objects;
    const KeyPath hops = resolveKeyPath(entityNamed(request.entityName), splitKeyPath(path));
    for (const RelationshipDescription* hop : hops.hops) {
      at = fetchDestinations(at, *hop);
      companions.insert(companions.end(), at.begin(), at.end());
    }
  }
  return companions;
}

ManagedObjects Fetching::fetchDestinations(const ManagedObjects& owners,
                                           const RelationshipDescription& relationship) {
  ObjectIDs ids;
  if (relationship.storage == RelationshipStorage::column) {
    for (const ManagedObjectPtr& owner : owners) {
      if (const ObjectID to = graph_.relationships().toOne(*owner, relationship)) ids.push_back(to);
    }
    return graph_.realised(ids);
  }
  ManagedObjects unknown;
  std::ranges::copy_if(owners, std::back_inserter(unknown), [&](const ManagedObjectPtr& owner) {
    return owner->state_ != State::inserted && !owner->derived(relationship).stored;
  });
  if (!unknown.empty()) graph_.fetchMembers(unknown, relationship);
  for (const ManagedObjectPtr& owner : owners) {
    std::ranges::copy(graph_.relationships().members(*owner, relationship),
                      std::back_inserter(ids));
  }
  return graph_.realised(ids);
}

}  // namespace zenivo
