// The objects of a context that have unsaved changes.

#pragma once

#include "store/graph/ManagedObject.h"

namespace zenivo {

/// Holds the objects with unsaved changes, or that had some, in the order of the first one.
class ChangedObjects {
 public:
  /// From now on the object is held; one without changes before counts as updated.
  void add(ManagedObject& object);
  void remove(ManagedObject& object);
  const ManagedObjects& all() const { return objects_; }
  /// Hands them over and holds none.
  ManagedObjects take();

  /// Those for which the test holds.
  template <class Test>
  ManagedObjects those(const Test& test) const {
    ManagedObjects objects;
    for (const ManagedObjectPtr& object : objects_) {
      if (test(*object)) objects.push_back(object);
    }
    return objects;
  }

 private:
  ManagedObjects objects_;
};

}  // namespace zenivo
