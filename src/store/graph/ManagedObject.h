// One object of a store, as one context sees it.

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/graph/DerivedRelationship.h"
#include "store/model/EntityDescription.h"
#include "store/model/StoreError.h"
#include "store/model/Value.h"

namespace zenivo {

class ManagedObject;
class ManagedObjectContext;
class ObjectGraph;
struct FaultBatch;

using ManagedObjectPtr = std::shared_ptr<ManagedObject>;
using ManagedObjects = std::vector<ManagedObjectPtr>;
using ValuesByKey = std::map<std::string, Value, std::less<>>;

/// An object with the attributes and relationships of its entity.  There is one per
/// row and context.  It belongs to its context's queue: every call but the
/// destruction must come from there.  It is held by whoever uses it, and by the
/// context while it has unsaved changes.
///
/// A fault is an object whose values are not in memory; reading or changing one
/// fetches them.  When its row turns out to be gone the object counts as deleted and
/// all its properties are empty.
///
/// Keys that the entity does not have and values that the property cannot hold throw
/// std::invalid_argument; reading a row that fails throws StoreFailure.
class ManagedObject : public std::enable_shared_from_this<ManagedObject> {
 public:
  ManagedObject() = default;
  virtual ~ManagedObject() = default;
  ManagedObject(const ManagedObject&) = delete;
  ManagedObject& operator=(const ManagedObject&) = delete;

  const EntityDescription& entity() const { return *entity_; }
  /// Temporary until the object is saved or obtains a permanent one.
  const ObjectID& objectID() const { return id_; }
  /// nullptr once the object left its context: after the save of a deletion, the
  /// rollback of an insertion, and a reset.
  ManagedObjectContext* managedObjectContext() const { return context_; }

  bool isInserted() const { return state_ == State::inserted; }
  /// Whether unsaved changes of an existing object are held, relationships included.
  bool isUpdated() const;
  bool isDeleted() const { return state_ == State::deleted || state_ == State::gone; }
  bool hasChanges() const;
  bool isFault() const { return values_.empty(); }

  /// The value of an attribute, or the identities that a relationship leads to.
  Value valueForKey(std::string_view key) const;
  /// The value at the end of a path over to-one relationships ("brand.name").
  Value valueForKeyPath(std::string_view keyPath) const;
  /// Sets an attribute; numbers are converted to the attribute's type.
  void setValue(Value value, std::string_view key);

  /// The destination of a to-one relationship; nullptr for none.
  ManagedObjectPtr relatedObjectForKey(std::string_view key) const;
  /// Sets or clears a to-one relationship, and its inverse with it.
  void setRelatedObject(const ManagedObjectPtr& object, std::string_view key);

  /// The destinations of a to-many relationship, ordered ones in their order.
  ManagedObjects relatedObjectsForKey(std::string_view key) const;
  /// How many there are, without fetching their values.
  std::size_t relatedCountForKey(std::string_view key) const;
  /// Change a to-many relationship, and the inverse with it.  Adding a member and
  /// removing what is none do nothing.
  void addRelatedObject(const ManagedObjectPtr& object, std::string_view key);
  void removeRelatedObject(const ManagedObjectPtr& object, std::string_view key);
  void setRelatedObjects(const ManagedObjects& objects, std::string_view key);
  /// Puts an object, member already or not, at a place of an ordered relationship;
  /// places beyond the end mean the end.
  void insertRelatedObject(const ManagedObjectPtr& object, std::string_view key, std::size_t index);

  /// The present values of the properties that differ from the last save; of an
  /// inserted object, of those that differ from nothing.
  ValuesByKey changedValues() const;
  /// The values as last fetched or saved, of the named properties or of all; empty
  /// values for an inserted object.
  ValuesByKey committedValuesForKeys(const std::vector<std::string>& keys) const;
  ValuesByKey committedValues() const;

  /// Called once in the life of the object, when it was inserted; the defaults are
  /// set already.
  virtual void awakeFromInsert() {}
  /// Called each time that the values came from the store.
  virtual void awakeFromFetch() {}
  /// Tell whether the object may be saved so.  An override asks its base class too.
  virtual bool validateForInsert(Error* error) const;
  virtual bool validateForUpdate(Error* error) const;
  virtual bool validateForDelete(Error* error) const;

 protected:
  /// The attribute for typed accessors: what the value is, or what stands for none.
  std::string stringForKey(std::string_view key) const { return valueForKey(key).string(); }
  std::optional<double> realForKey(std::string_view key) const { return valueForKey(key).real(); }
  std::optional<std::int64_t> integerForKey(std::string_view key) const {
    return valueForKey(key).integer();
  }
  std::optional<bool> booleanForKey(std::string_view key) const {
    return valueForKey(key).boolean();
  }
  std::optional<Date> dateForKey(std::string_view key) const { return valueForKey(key).date(); }

 private:
  friend class ManagedObjectContext;
  friend class ObjectGraph;
  friend class ChangedObjects;
  friend class ChildRequests;
  friend class Deletions;
  friend class Fetching;
  friend class Identities;
  friend class Merging;
  friend class Relationships;
  friend class Saving;

  enum class State : std::uint8_t { clean, inserted, updated, deleted, gone };

  /// What a property kept in the row held before it was changed.
  struct OldValue {
    const PropertyDescription* property;
    Value value;
  };

  ObjectGraph* graph() const;
  ManagedObject& self() const;
  const PropertyDescription& property(std::string_view key) const;
  const RelationshipDescription& relationship(std::string_view key, bool toMany) const;
  const OldValue* oldValueOf(const PropertyDescription& property) const;
  DerivedRelationship& derived(const RelationshipDescription& relationship) const;
  ObjectID destination(const ManagedObjectPtr& object,
                       const RelationshipDescription& relationship) const;
  Value committedValue(const PropertyDescription& property) const;
  bool isMissing(const PropertyDescription& property) const;
  bool validateProperties(Error* error) const;

  ManagedObjectContext* context_ = nullptr;
  const EntityDescription* entity_ = nullptr;
  ObjectID id_;
  State state_ = State::clean;
  bool isTracked_ = false;  // among the context's changed objects
  std::int64_t version_ = 0;
  mutable std::vector<Value> values_;  // by property index; empty in a fault
  std::vector<OldValue> oldValues_;
  mutable std::vector<DerivedRelationship> derived_;  // by derivedIndex; empty until used
  std::shared_ptr<FaultBatch> batch_;                 // faults to be fetched together
};

}  // namespace zenivo
