// A predicate tied to the entity whose objects it is asked about.

#pragma once

#include <cstddef>
#include <set>
#include <vector>

#include "store/predicates/KeyPath.h"
#include "store/predicates/Predicate.h"
#include "store/predicates/TextSearch.h"

namespace zenivo {

/// The predicate's tree with its keys looked up and its values checked: what both
/// evaluators walk.  Refers to the predicate and to the model.
struct BoundPredicate {
  /// Throws std::invalid_argument for unknown keys, paths over to-many relationships
  /// without ANY, and values that the property can never be compared with.
  BoundPredicate(const PredicateNode& source, const EntityDescription& entity);

  const PredicateNode* node;
  std::vector<BoundPredicate> parts;
  KeyPath path;
  std::size_t manyHop = kNone;  ///< the to-many hop of ANY or of @count

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  TextFolding folding() const { return {node->ignoresCase, node->ignoresMarks}; }
  /// Entities beside the object's own on whose values the answer depends.
  void addRelatedEntities(std::set<const EntityDescription*>& entities) const;

 private:
  void bindComparison(const EntityDescription& entity);
  void requireComparable(const Value& value) const;
};

}  // namespace zenivo
