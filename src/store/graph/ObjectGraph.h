// The objects of one context and how they hang together.

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "store/file/ObjectSource.h"
#include "store/graph/FetchedObjects.h"
#include "store/graph/ManagedObject.h"
#include "store/graph/SaveNotification.h"
#include "store/predicates/FetchRequest.h"

namespace zenivo {

/// Faults that came together and are fetched together.
struct FaultBatch {
  ObjectIDs ids;
  ObjectID owner;  ///< whose relationship they came from; none for a fetch
  const RelationshipDescription* relationship = nullptr;
};

/// The workings of a context, without its queue and its error reporting: failures
/// throw.  To-one relationships kept in a row are the truth; what leads the other way
/// is derived from them, and every change goes through the few functions below that
/// keep both ends in step.
class ObjectGraph {
 public:
  /// Gives what the context stands on; throws StoreFailure when there is nothing.
  using Ground = std::function<std::shared_ptr<ObjectSource>()>;

  ObjectGraph(ManagedObjectContext& context, Ground ground)
      : context_(context), ground_(std::move(ground)) {}
  ~ObjectGraph();
  ObjectGraph(const ObjectGraph&) = delete;
  ObjectGraph& operator=(const ObjectGraph&) = delete;

  // Objects in memory.
  ManagedObjectPtr registered(const ObjectID& id) const;
  ManagedObjectPtr objectFor(const ObjectID& id);
  ManagedObjectPtr insert(const EntityDescription& entity);
  ManagedObjectPtr insertWithID(const ObjectID& id);
  ManagedObjects allRegistered() const;
  const ManagedObjects& changed() const { return tracked_; }
  /// Those of the changed objects for which the test holds.
  template <class Test>
  ManagedObjects changed(const Test& test) const {
    ManagedObjects objects;
    for (const ManagedObjectPtr& object : tracked_) {
      if (test(*object)) objects.push_back(object);
    }
    return objects;
  }
  void reset();

  // Values.
  void realise(ManagedObject& object);
  /// The objects with their values, fetched at once; those without a row as deleted.
  ManagedObjects realised(const ObjectIDs& ids);
  void setAttribute(ManagedObject& object, const AttributeDescription& attribute, Value value);
  DerivedRelationship& fetched(ManagedObject& object, const RelationshipDescription& relationship);
  void fetchMembers(const ManagedObjects& owners, const RelationshipDescription& relationship);

  // Relationships.  `destination` may be none.
  ObjectID toOne(ManagedObject& object, const RelationshipDescription& relationship);
  ObjectIDs members(ManagedObject& object, const RelationshipDescription& relationship);
  ManagedObjects memberObjects(ManagedObject& object, const RelationshipDescription& relationship);
  void setToOne(ManagedObject& object, const RelationshipDescription& relationship,
                const ObjectID& destination);
  void add(ManagedObject& object, const RelationshipDescription& relationship,
           const ObjectID& member);
  void remove(ManagedObject& object, const RelationshipDescription& relationship,
              const ObjectID& member);
  void setOrder(ManagedObject& object, const RelationshipDescription& relationship,
                ObjectIDs order);

  // Deleting.
  void deleteObject(ManagedObject& object, const RelationshipDescription* reachedBy = nullptr);
  void undelete(ManagedObject& object);

  // Fetching; see ObjectGraphFetching.cpp.
  ManagedObjects fetch(const FetchRequest& request);
  /// Fetches what the request wants along with these results.  To be held with them:
  /// the context does not hold objects without changes.
  ManagedObjects prefetch(const ManagedObjects& objects, const FetchRequest& request);
  ObjectIDs fetchIDs(const FetchRequest& request);
  std::size_t count(const FetchRequest& request);

  // Saving and its opposite; see ObjectGraphSaving.cpp.
  bool save(Error* error);
  void obtainPermanentIDs(const ManagedObjects& objects);
  /// Takes over the permanent identities that objects saved to the parent got there.
  void adoptPermanentIDs();
  void rollback();

  // For children; see ObjectGraphParenting.cpp.
  void remembersTemporaryIDs() { remembersIDs_ = true; }
  ObjectID ownID(const ObjectID& id) const;
  std::vector<Row> rowsForChild(const ObjectIDs& ids);
  ObjectIDs membersForChild(const ObjectID& owner, const RelationshipDescription& relationship);
  ObjectIDs permanentIDsForChild(const ObjectIDs& temporary);
  SaveOutcome takeSave(const SaveRequest& request);

  // What others did; see ObjectGraphRefreshing.cpp.
  void refresh(ManagedObject& object, bool mergeChanges);
  void merge(const ObjectIDs& inserted, const ObjectIDs& updated, const ObjectIDs& deleted);

 private:
  class Collector;
  using State = ManagedObject::State;
  using IDMap = std::unordered_map<ObjectID, ObjectID>;

  // Objects in memory.
  ManagedObjectPtr make(const EntityDescription& entity, const ObjectID& id);
  void enroll(const ManagedObjectPtr& object);
  void track(ManagedObject& object);
  void forgetChanges();
  void leave(ManagedObject& object);
  void vanish(ManagedObject& object);
  void adopt(ManagedObject& object, Row&& row);
  ObjectIDs idsToRealiseWith(const ManagedObject& object) const;
  void turnIntoFault(ManagedObject& object);

  // Relationships.
  void setColumn(ManagedObject& object, const RelationshipDescription& column,
                 const ObjectID& destination);
  void recordChange(ManagedObject& object, const PropertyDescription& property, Value value);
  ObjectID committedColumn(const ManagedObject& object,
                           const RelationshipDescription& column) const;
  ObjectID presentColumn(const ManagedObject& object, const RelationshipDescription& column) const;
  void contribute(ManagedObject& object, const RelationshipDescription& column);
  void withdraw(ManagedObject& object, const RelationshipDescription& column);
  void withdrawAll(ManagedObject& object);
  void contributeAll(ManagedObject& object);
  void link(ManagedObject& object, const RelationshipDescription& relationship,
            const ObjectID& member);
  void unlink(ManagedObject& object, const RelationshipDescription& relationship,
              const ObjectID& member);
  void letGo(ManagedObject& deleted, const RelationshipDescription& relationship,
             const ObjectID& id);
  void letGoOfNewMembers(ManagedObject& deleted);
  void keepListsInStep(const ManagedObject& object, const RelationshipDescription& column,
                       const ObjectID& before, const ObjectID& after);
  void keepListsOf(const ManagedObject& object);
  void keepGivenPartners(ManagedObject& object);

  // Fetching.
  bool hasRelevantChanges(const FetchRequest& request, const EntityDescription& entity) const;
  bool dependsOnOtherChanges(const FetchRequest& request, const EntityDescription& entity) const;
  ManagedObjects fetchFromSource(const FetchRequest& request);
  ManagedObjects fetchWithChanges(const FetchRequest& request, const EntityDescription& entity);
  void sort(ManagedObjects& objects, const FetchRequest& request, const EntityDescription& entity);
  ManagedObjects fetchDestinations(const ManagedObjects& owners,
                                   const RelationshipDescription& relationship);
  const EntityDescription& entityNamed(std::string_view name) const;

  // Saving.
  bool validate(Error* error) const;
  SaveRequest request();
  static std::vector<PropertyChange> rowChanges(const ManagedObject& object);
  void addRelationshipChanges(ManagedObject& object, SaveRequest& request);
  SaveNotification notification() const;
  void addCascaded(SaveNotification& saved, const ObjectIDs& cascaded);
  void addStripped(SaveNotification& saved, const ObjectIDs& stripped);
  void settle(SaveOutcome outcome);
  void settleObject(ManagedObject& object, const SaveOutcome& outcome);
  void renumber(const IDMap& permanentIDs);
  void renumberReferences(ManagedObject& object, const IDMap& permanentIDs);

  // For children.
  void refuseConflicts(const SaveRequest& request);
  void takeInsertion(const ObjectID& id, const std::vector<Value>& values);
  void takeColumns(const ObjectID& id, const std::vector<Value>& values);
  void takeUpdate(const UpdatedRow& row, MergePolicy policy, SaveOutcome& outcome);

  // What others did.
  void takeOver(ManagedObject& object, Row&& row);
  void keepPartners(ManagedObject& object);
  void dropChangesOfOthers(ManagedObject& object, const RelationshipDescription& relationship);
  void takeOverColumn(ManagedObject& object, const RelationshipDescription& column, Value& known,
                      Value&& theirs);
  void revertOwnChanges(ManagedObject& object);
  void revertMembers(ManagedObject& object, const RelationshipDescription& relationship);

  ManagedObjectContext& context_;
  const Ground ground_;
  std::unordered_map<ObjectID, std::weak_ptr<ManagedObject>> registry_;
  std::size_t purgeAt_ = 1024;
  ManagedObjects tracked_;  // with unsaved changes, in the order of the first one
  bool remembersIDs_ = false;
  IDMap permanentIDs_;                               // for children that know the temporary ones
  std::vector<std::weak_ptr<ManagedObject>> saved_;  // to the parent, under temporary identities
};

}  // namespace zenivo
