// Values and relationships of a context's objects, and their changes.

#pragma once

#include "store/graph/ManagedObject.h"

namespace zenivo {

class ObjectGraph;

/// To-one relationships kept in a row ("columns") are the truth.  What leads the other way is
/// derived from them, and every change goes through the few functions below that keep both
/// ends in step.  See docs/store-graph.md.
class Relationships {
 public:
  explicit Relationships(ObjectGraph& graph) : graph_(graph) {}

  ObjectID toOne(ManagedObject& object, const RelationshipDescription& relationship);
  ObjectIDs members(ManagedObject& object, const RelationshipDescription& relationship);
  ManagedObjects memberObjects(ManagedObject& object, const RelationshipDescription& relationship);

  void setAttribute(ManagedObject& object, const AttributeDescription& attribute, Value value);
  /// `destination` may be none.
  void setToOne(ManagedObject& object, const RelationshipDescription& relationship,
                const ObjectID& destination);
  void setColumn(ManagedObject& object, const RelationshipDescription& column,
                 const ObjectID& destination);
  void add(ManagedObject& object, const RelationshipDescription& relationship,
           const ObjectID& member);
  void remove(ManagedObject& object, const RelationshipDescription& relationship,
              const ObjectID& member);
  void setOrder(ManagedObject& object, const RelationshipDescription& relationship,
                ObjectIDs order);

  /// One end alone of a many-to-many relationship.
  void link(ManagedObject& object, const RelationshipDescription& relationship,
            const ObjectID& member);
  void unlink(ManagedObject& object, const RelationshipDescription& relationship,
              const ObjectID& member);

  /// Keeps a value and, for a saved object, what it was before.
  void recordChange(ManagedObject& object, const PropertyDescription& property, Value value);

  /// Where a column led at the last save.
  ObjectID committedColumn(const ManagedObject& object,
                           const RelationshipDescription& column) const;
  /// Tells the objects that a column led to and leads to of the difference, and takes it back.
  void contribute(ManagedObject& object, const RelationshipDescription& column);
  void withdraw(ManagedObject& object, const RelationshipDescription& column);
  void contributeAll(ManagedObject& object);
  void withdrawAll(ManagedObject& object);

  /// Lists in memory follow a row that leads elsewhere without a change of this context's.
  void keepListsInStep(const ManagedObject& object, const RelationshipDescription& column,
                       const ObjectID& before, const ObjectID& after);
  /// The same for all columns of an object whose row was just read.
  void keepListsOf(const ManagedObject& object);
  void keepGivenPartners(ManagedObject& object);

 private:
  using State = ManagedObject::State;

  ObjectID presentColumn(const ManagedObject& object, const RelationshipDescription& column) const;

  ObjectGraph& graph_;
};

}  // namespace zenivo
