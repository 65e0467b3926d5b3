#include "store/graph/ManagedObjectContext.h"

#include <algorithm>
#include <stdexcept>

#include "store/file/PersistentStoreCoordinator.h"
#include "store/graph/ObjectGraph.h"
#include "store/graph/ParentSource.h"

namespace zenivo {
namespace {

/// The answer of an operation; nullopt and the reason when it throws.
template <class Operation>
auto attempt(Error* error, const Operation& operation) -> std::optional<decltype(operation())> {
  try {
    return operation();
  } catch (...) {
    fail(error, errorOfCurrentException());
    return std::nullopt;
  }
}

}  // namespace

ManagedObjectContext::ManagedObjectContext(ConcurrencyType concurrencyType)
    : queue_(std::make_shared<ContextQueue>(concurrencyType)) {}

ManagedObjectContext::~ManagedObjectContext() = default;

void ManagedObjectContext::setPersistentStoreCoordinator(
    std::shared_ptr<PersistentStoreCoordinator> coordinator) {
  coordinator_ = std::move(coordinator);
  graph_ = std::make_unique<ObjectGraph>(
      *this, [ground = coordinator_] { return ground->objectSource(); });
}

void ManagedObjectContext::setParentContext(std::shared_ptr<ManagedObjectContext> parent) {
  parent_ = std::move(parent);
  coordinator_ = parent_->persistentStoreCoordinator();
  const auto source = std::make_shared<ParentSource>(parent_);
  graph_ = std::make_unique<ObjectGraph>(*this, [source] { return source; });
}

ObjectGraph& ManagedObjectContext::graph() const {
  assertOnQueue();
  if (graph_ == nullptr) {
    throw std::invalid_argument("the context has neither a coordinator nor a parent");
  }
  return *graph_;
}

void ManagedObjectContext::performBlock(std::function<void()> block) {
  queue_->performBlock([self = shared_from_this(), work = std::move(block)] { work(); });
}

void ManagedObjectContext::performBlockAndWait(const std::function<void()>& block) {
  queue_->performBlockAndWait(block);
}

ManagedObjectPtr ManagedObjectContext::insertNewObjectForEntityForName(
    std::string_view entityName) {
  ObjectGraph& objects = graph();
  const EntityDescription* entity = coordinator_->managedObjectModel()->entityNamed(entityName);
  if (entity == nullptr || entity->isAbstract()) {
    throw std::invalid_argument("there are no objects of an entity '" + std::string(entityName) +
                                "'");
  }
  return objects.insert(*entity);
}

void ManagedObjectContext::deleteObject(const ManagedObjectPtr& object) {
  if (object->managedObjectContext() == this) graph().deletions().deleteObject(*object);
}

std::optional<FetchedObjects> ManagedObjectContext::executeFetchRequest(const FetchRequest& request,
                                                                        Error* error) {
  return attempt(error, [&] {
    if (request.fetchBatchSize != 0) {
      return FetchedObjects(weak_from_this(), request, graph().fetching().fetchIDs(request));
    }
    ManagedObjects objects = graph().fetching().fetch(request);
    ManagedObjects companions = graph().fetching().prefetch(objects, request);
    return FetchedObjects(std::move(objects), std::move(companions));
  });
}

std::optional<ObjectIDs> ManagedObjectContext::executeFetchRequestForObjectIDs(
    const FetchRequest& request, Error* error) {
  return attempt(error, [&] { return graph().fetching().fetchIDs(request); });
}

std::optional<std::size_t> ManagedObjectContext::countForFetchRequest(const FetchRequest& request,
                                                                      Error* error) {
  return attempt(error, [&] { return graph().fetching().count(request); });
}

bool ManagedObjectContext::enumerateObjectsForFetchRequest(
    const FetchRequest& request, std::size_t batchSize,
    const std::function<bool(const ManagedObjects&)>& block, Error* error) {
  FetchRequest batched = request;
  batched.fetchBatchSize = std::max<std::size_t>(batchSize, 1);
  const std::optional<FetchedObjects> results = executeFetchRequest(batched, error);
  if (!results) return false;
  const auto walk = [&] {
    for (std::size_t first = 0; first < results->size(); first += batched.fetchBatchSize) {
      const std::size_t end = std::min(first + batched.fetchBatchSize, results->size());
      ManagedObjects batch;
      for (std::size_t i = first; i < end; ++i) {
        ManagedObjectPtr object = results->at(i);
        if (!object->isDeleted()) batch.push_back(std::move(object));
      }
      if (!batch.empty() && !block(batch)) break;
    }
    return true;
  };
  return attempt(error, walk).has_value();
}

ManagedObjectPtr ManagedObjectContext::objectRegisteredForID(const ObjectID& id) const {
  return graph().registry().find(id);
}

/// The identity as this context's model has it, since another coordinator may have
/// made it; none when it is of another store.
ObjectID ManagedObjectContext::localID(const ObjectID& id) const {
  if (!id || id.isTemporaryID()) return id;
  return coordinator_->localID(id).value_or(ObjectID());
}

ManagedObjectPtr ManagedObjectContext::objectWithID(const ObjectID& id) {
  ObjectGraph& objects = graph();
  objects.identities().adoptPermanentIDs();
  if (ManagedObjectPtr known = objects.registry().find(id)) return known;
  const ObjectID own = localID(id);
  return own ? objects.objectFor(own) : nullptr;
}

ManagedObjectPtr ManagedObjectContext::existingObjectWithID(const ObjectID& id, Error* error) {
  const auto found = attempt(error, [&]() -> ManagedObjectPtr {
    const ManagedObjectPtr object = objectWithID(id);
    if (object == nullptr) return nullptr;
    graph().realise(*object);
    return object->isDeleted() ? nullptr : object;
  });
  return found.value_or(nullptr);
}

bool ManagedObjectContext::hasChanges() const {
  return std::ranges::any_of(
      graph().changes().all(), &ManagedObject::hasChanges,
      [](const ManagedObjectPtr& object) -> const ManagedObject& { return *object; });
}

ManagedObjects ManagedObjectContext::insertedObjects() const {
  return graph().changes().those([](const ManagedObject& object) { return object.isInserted(); });
}

ManagedObjects ManagedObjectContext::updatedObjects() const {
  return graph().changes().those([](const ManagedObject& object) { return object.isUpdated(); });
}

ManagedObjects ManagedObjectContext::deletedObjects() const {
  return graph().changes().those(
      [](const ManagedObject& object) { return object.isDeleted() && object.hasChanges(); });
}

ManagedObjects ManagedObjectContext::registeredObjects() const {
  return graph().registry().all();
}

bool ManagedObjectContext::save(Error* error) {
  return attempt(error, [&] { return graph().saving().save(error); }).value_or(false);
}

bool ManagedObjectContext::obtainPermanentIDsForObjects(const ManagedObjects& objects,
                                                        Error* error) {
  return attempt(error,
                 [&] {
                   graph().identities().obtainPermanentIDs(objects);
                   return true;
                 })
      .has_value();
}

void ManagedObjectContext::refreshObject(const ManagedObjectPtr& object, bool mergeChanges) {
  if (object->managedObjectContext() == this) graph().merging().refresh(*object, mergeChanges);
}

void ManagedObjectContext::rollback() {
  graph().saving().rollback();
}

void ManagedObjectContext::reset() {
  graph().reset();
}

void ManagedObjectContext::mergeChangesFromContextDidSaveNotification(
    const SaveNotification& notification) {
  const auto localIDs = [this](const ObjectIDs& ids) {
    ObjectIDs own;
    for (const ObjectID& id : ids) {
      if (const ObjectID here = localID(id)) own.push_back(here);
    }
    return own;
  };
  graph().merging().merge(localIDs(notification.insertedObjectIDs),
                          localIDs(notification.updatedObjectIDs),
                          localIDs(notification.deletedObjectIDs));
}

}  // namespace zenivo
