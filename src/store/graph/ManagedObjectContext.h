// A scratch pad of objects: fetched, changed, and saved together.

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

#include "store/file/MergePolicy.h"
#include "store/graph/ContextQueue.h"
#include "store/graph/FetchedObjects.h"
#include "store/graph/ManagedObject.h"
#include "store/graph/SaveNotification.h"
#include "store/predicates/FetchRequest.h"

namespace zenivo {

class ObjectGraph;
class PersistentStoreCoordinator;

/// Objects of one store, uniqued: one object per row.  Stands on a coordinator, or
/// on a parent context to which its saves go.  Everything but the performBlock
/// operations must be called on the context's queue; builds without NDEBUG end the
/// program with a message when it is not.
///
/// Failing operations give nullopt, nullptr or false and the reason in `error`, whose
/// domain is kStoreErrorDomain; the context then keeps its changes.
class ManagedObjectContext : public std::enable_shared_from_this<ManagedObjectContext> {
 public:
  explicit ManagedObjectContext(ConcurrencyType concurrencyType);
  ManagedObjectContext(const ManagedObjectContext&) = delete;
  ManagedObjectContext& operator=(const ManagedObjectContext&) = delete;
  ~ManagedObjectContext();

  /// Where the context stands; one of the two is set once, before any other use.
  void setPersistentStoreCoordinator(std::shared_ptr<PersistentStoreCoordinator> coordinator);
  void setParentContext(std::shared_ptr<ManagedObjectContext> parent);
  /// The coordinator at the bottom; nullptr before one is set.
  const std::shared_ptr<PersistentStoreCoordinator>& persistentStoreCoordinator() const {
    return coordinator_;
  }
  const std::shared_ptr<ManagedObjectContext>& parentContext() const { return parent_; }

  ConcurrencyType concurrencyType() const { return queue_->type(); }
  MergePolicy mergePolicy() const { return mergePolicy_; }
  void setMergePolicy(MergePolicy policy) { mergePolicy_ = policy; }

  /// Runs the block on the context's queue, later; blocks run in the order of the
  /// calls.  The context lives until then.
  void performBlock(std::function<void()> block);
  /// Runs the block on the context's queue after those that wait there already, and
  /// returns when it is done.  Called on the queue it runs at once.
  void performBlockAndWait(const std::function<void()>& block);

  /// A new object of the entity, with its defaults, awoken.  Throws
  /// std::invalid_argument for an unknown or abstract entity.
  ManagedObjectPtr insertNewObjectForEntityForName(std::string_view entityName);
  /// Deletes the object and what its delete rules reach; what was inserted and never
  /// saved is forgotten.  Deleting twice does nothing.
  void deleteObject(const ManagedObjectPtr& object);

  /// The objects that meet the request, unsaved changes included.
  std::optional<FetchedObjects> executeFetchRequest(const FetchRequest& request,
                                                    Error* error = nullptr);
  /// The same as identities alone.
  std::optional<ObjectIDs> executeFetchRequestForObjectIDs(const FetchRequest& request,
                                                           Error* error = nullptr);
  std::optional<std::size_t> countForFetchRequest(const FetchRequest& request,
                                                  Error* error = nullptr);
  /// Walks the results in batches.  Between batches the block may save and reset the
  /// context; it ends the walk by answering false.  What is deleted before its turn
  /// is left out.
  bool enumerateObjectsForFetchRequest(const FetchRequest& request, std::size_t batchSize,
                                       const std::function<bool(const ManagedObjects&)>& block,
                                       Error* error = nullptr);

  /// The object that is in memory already; nullptr when it is not.
  ManagedObjectPtr objectRegisteredForID(const ObjectID& id) const;
  /// The object, as a fault when it is not in memory; its row need not exist.
  /// nullptr for the identity of no object or of another store.
  ManagedObjectPtr objectWithID(const ObjectID& id);
  /// The object when its row exists, else nullptr.
  ManagedObjectPtr existingObjectWithID(const ObjectID& id, Error* error = nullptr);

  bool hasChanges() const;
  ManagedObjects insertedObjects() const;
  ManagedObjects updatedObjects() const;
  ManagedObjects deletedObjects() const;
  /// The objects in memory, in no certain order.
  ManagedObjects registeredObjects() const;

  /// Posts will-save, validates, writes everything or nothing, posts did-save.  True
  /// once it is on the disk (of a child: in its parent).
  bool save(Error* error = nullptr);
  /// Gives the objects permanent identities before they are saved.
  bool obtainPermanentIDsForObjects(const ManagedObjects& objects, Error* error = nullptr);

  /// Merging: reads the values again and keeps unsaved changes on top.  Not merging:
  /// drops the object's changes, its deletion among them, and makes it a fault; what its
  /// delete rules reached stays deleted.
  void refreshObject(const ManagedObjectPtr& object, bool mergeChanges);
  /// Drops all changes; what was inserted leaves the context.
  void rollback();
  /// Forgets every object, changes included.
  void reset();

  /// Takes over what another context saved: changed objects are read again with own
  /// unsaved changes kept on top, deleted ones leave the context.
  void mergeChangesFromContextDidSaveNotification(const SaveNotification& notification);

 private:
  friend class ManagedObject;
  friend class ObjectGraph;
  friend class ParentSource;
  friend class FetchedObjects;

  void assertOnQueue() const { queue_->assertCurrent(); }
  ObjectGraph& graph() const;
  ObjectID localID(const ObjectID& id) const;

  std::shared_ptr<ContextQueue> queue_;
  std::shared_ptr<ManagedObjectContext> parent_;
  std::shared_ptr<PersistentStoreCoordinator> coordinator_;
  MergePolicy mergePolicy_ = MergePolicy::error;
  std::unique_ptr<ObjectGraph> graph_;
};

}  // namespace zenivo
