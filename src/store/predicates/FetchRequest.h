// What to fetch from a store.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "store/predicates/Predicate.h"

namespace zenivo {

/// An order of objects: by an attribute, or one reached over to-one relationships.
/// Nothing sorts before everything else, text by its bytes.
struct SortDescriptor {
  std::string keyPath;
  bool ascending = true;
};

/// Which objects of an entity, and in which order.  Objects that sort alike come in
/// the order of their insertion.
struct FetchRequest {
  std::string entityName = {};
  std::optional<Predicate> predicate = {};  ///< none: all objects
  std::vector<SortDescriptor> sortDescriptors = {};
  std::size_t fetchLimit = 0;   ///< 0: no limit
  std::size_t fetchOffset = 0;  ///< results left out at the front
  /// When not 0, only the identities are fetched at first, and the objects of this
  /// many at a time when they are asked for.
  std::size_t fetchBatchSize = 0;
  bool includesSubentities = true;
  bool includesPropertyValues = true;  ///< false: objects come as faults
  bool includesPendingChanges = true;  ///< false: as the store is, unsaved changes apart
  /// Relationships, or paths of them, whose destinations are fetched along.
  std::vector<std::string> relationshipKeyPathsForPrefetching = {};
};

}  // namespace zenivo
