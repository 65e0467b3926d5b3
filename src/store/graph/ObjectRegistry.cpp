#include "store/graph/ObjectRegistry.h"

#include <algorithm>

namespace zenivo {

ManagedObjectPtr ObjectRegistry::find(const ObjectID& id) const {
  const auto found = objects_.find(id);
  return found != objects_.end() ? found->second.lock() : nullptr;
}

void ObjectRegistry::enroll(const ObjectID& id, const ManagedObjectPtr& object) {
  if (objects_.size() >= sweepAt_) {
    std::erase_if(objects_, [](const auto& entry) { return entry.second.expired(); });
    sweepAt_ = std::max(kLeastToSweep, objects_.size() * 2);
  }
  objects_[id] = object;
}

ManagedObjects ObjectRegistry::all() const {
  ManagedObjects objects;
  for (const auto& [id, weak] : objects_) {
    if (ManagedObjectPtr object = weak.lock()) objects.push_back(std::move(object));
  }
  return objects;
}

}  // namespace zenivo
