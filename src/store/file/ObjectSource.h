// What a context stands on: a store, or another context.

#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "store/file/MergePolicy.h"
#include "store/model/PropertyDescription.h"
#include "store/model/Value.h"
#include "store/predicates/FetchRequest.h"

namespace zenivo {

/// The values of an object where it came from.
struct Row {
  ObjectID id;
  std::int64_t version = 0;   ///< grows with each change of the row
  std::vector<Value> values;  ///< by property index; empty for what the row does not hold
};

/// Takes rows as they are read.
class RowReceiver {
 public:
  virtual ~RowReceiver() = default;
  /// A result, in order.  Answers whether its values are wanted; then `take` follows.
  virtual bool found(const ObjectID& id) = 0;
  virtual void take(Row&& row) = 0;
};

/// A property of a row with its values before and after.
struct PropertyChange {
  const PropertyDescription* property;
  Value before;
  Value after;
};

/// A new row.  The values belong to the object and stay in place during the save.
struct InsertedRow {
  ObjectID id;
  const std::vector<Value>* values;  ///< by property index
};

/// A row to be changed; `values` as above, the changes included.
struct UpdatedRow {
  ObjectID id;
  std::int64_t version;  ///< as read
  std::vector<PropertyChange> changes;
  const std::vector<Value>* values;
};

struct DeletedRow {
  ObjectID id;
  std::int64_t version;  ///< as read, or kAnyVersion
  /// What changed before the deletion: delete rules do not reach along these any more.
  std::vector<PropertyChange> changes;
};

/// The version of a row that was never read: whatever it is, it is no conflict.
inline constexpr std::int64_t kAnyVersion = -1;

/// Members of a many-to-many relationship, told from one of its sides.
struct MemberChange {
  ObjectID owner;
  const RelationshipDescription* relationship;
  ObjectIDs added;
  ObjectIDs removed;
};

/// The members of an ordered relationship in their order.
struct OrderChange {
  ObjectID owner;
  const RelationshipDescription* relationship;
  ObjectIDs members;
};

/// Everything that one save writes.
struct SaveRequest {
  MergePolicy mergePolicy = MergePolicy::error;
  std::vector<InsertedRow> inserted = {};
  std::vector<UpdatedRow> updated = {};
  std::vector<DeletedRow> deleted = {};
  std::vector<MemberChange> members = {};
  std::vector<OrderChange> orders = {};
};

/// What became of it.
struct SaveOutcome {
  std::unordered_map<ObjectID, ObjectID> permanentIDs;  ///< by temporary identity
  std::unordered_map<ObjectID, std::int64_t> versions;  ///< of the rows written
  std::vector<Row> merged;                              ///< rows in which conflicts were settled
  ObjectIDs vanished;                                   ///< updated here, deleted by others
  ObjectIDs stripped;  ///< lost their partner in a one-to-one relationship to a row of the request
  ObjectIDs cascaded;  ///< deleted by the rules of deleted rows, which the request did not tell
};

/// Reads and writes objects for a context.  Safe to use from any thread; failures
/// throw StoreFailure, or what errorOfCurrentException understands.
class ObjectSource {
 public:
  virtual ~ObjectSource() = default;

  /// Objects that meet the request, without its limits for batches and prefetching.
  virtual void fetch(const FetchRequest& request, RowReceiver& receiver) = 0;
  virtual std::size_t count(const FetchRequest& request) = 0;
  /// The rows of these objects that exist, in no certain order.
  virtual void rows(const ObjectIDs& ids, RowReceiver& receiver) = 0;
  /// The members of a relationship of each owner, in the order of the owners.
  virtual std::vector<ObjectIDs> destinations(const ObjectIDs& owners,
                                              const RelationshipDescription& relationship) = 0;
  virtual SaveOutcome save(const SaveRequest& request) = 0;
  /// Permanent identities for temporary ones, in their order.
  virtual ObjectIDs obtainPermanentIDs(const ObjectIDs& temporary) = 0;
  /// The permanent identities of those objects that got one since they were saved.
  virtual std::unordered_map<ObjectID, ObjectID> permanentIDsFor(const ObjectIDs& temporary) = 0;
};

}  // namespace zenivo
