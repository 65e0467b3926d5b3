#include "store/graph/ChangedObjects.h"

#include <utility>

namespace zenivo {

void ChangedObjects::add(ManagedObject& object) {
  using State = ManagedObject::State;
  if (object.state_ == State::clean) object.state_ = State::updated;
  if (object.isTracked_) return;
  object.isTracked_ = true;
  objects_.push_back(object.shared_from_this());
}

void ChangedObjects::remove(ManagedObject& object) {
  std::erase_if(objects_, [&](const ManagedObjectPtr& each) { return each.get() == &object; });
  object.isTracked_ = false;
}

ManagedObjects ChangedObjects::take() {
  for (const ManagedObjectPtr& object : objects_) object->isTracked_ = false;
  return std::exchange(objects_, {});
}

}  // namespace zenivo
