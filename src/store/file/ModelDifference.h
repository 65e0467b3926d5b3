// Whether the step from one model to another can be worked out.

#pragma once

#include <set>
#include <string>
#include <vector>

#include "store/file/StoreCatalogue.h"
#include "store/model/ManagedObjectModel.h"

namespace zenivo {

/// What is new in a model against the entities of a store.
struct ModelDifference {
  std::vector<std::string> removedEntities;
  bool removesProperties = false;  ///< of the entities that stay
  /// Attributes of known entities that rows lack, or may lack: their default goes in.
  std::vector<const AttributeDescription*> attributesToFill;

  bool losesValues() const { return removesProperties || !removedEntities.empty(); }
};

/// Throws StoreFailure, naming the property, when the difference is more than additions,
/// removals and properties made optional.
ModelDifference inferModelDifference(const StoreCatalogue& catalogue,
                                     const ManagedObjectModel& model);

}  // namespace zenivo
