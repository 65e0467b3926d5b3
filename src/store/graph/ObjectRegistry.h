// The objects of a context that are in memory.

#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>

#include "store/graph/ManagedObject.h"

namespace zenivo {

/// One object for each identity, as long as somebody holds it.
class ObjectRegistry {
 public:
  /// nullptr when there is none.
  ManagedObjectPtr find(const ObjectID& id) const;
  void enroll(const ObjectID& id, const ManagedObjectPtr& object);
  void forget(const ObjectID& id) { objects_.erase(id); }
  void clear() { objects_.clear(); }
  /// In no certain order.
  ManagedObjects all() const;

 private:
  static constexpr std::size_t kLeastToSweep = 1024;

  std::unordered_map<ObjectID, std::weak_ptr<ManagedObject>> objects_;
  std::size_t sweepAt_ = kLeastToSweep;  // the dead go when so many are known
};

}  // namespace zenivo
