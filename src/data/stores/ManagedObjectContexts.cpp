#include "data/stores/ManagedObjectContexts.h"

namespace zenivo {

ZVManagedObjectContexts ZVManagedObjectContexts::scratchPair() const {
  auto child = std::make_shared<ManagedObjectContext>(ConcurrencyType::mainQueue);
  child->setParentContext(userContext);
  child->setMergePolicy(MergePolicy::mergeByPropertyObjectTrump);
  return {std::move(child), staticContext};
}

}  // namespace zenivo
