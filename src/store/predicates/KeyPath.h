// Paths over relationships to a value.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/model/EntityDescription.h"

namespace zenivo {

/// A path from objects of an entity: over relationships, and at the end an attribute,
/// or, without one, the identity of the object that it leads to.
struct KeyPath {
  std::vector<const RelationshipDescription*> hops;
  const AttributeDescription* attribute = nullptr;
};

/// "a.b.c" as its keys.
std::vector<std::string> splitKeyPath(std::string_view path);

/// Throws std::invalid_argument for keys that the entities on the way do not have.
KeyPath resolveKeyPath(const EntityDescription& entity, const std::vector<std::string>& keys);

/// The same for sorting, where a path must lead to one attribute: a to-many on the
/// way or a relationship at the end is refused.
KeyPath resolveSortKeyPath(const EntityDescription& entity, std::string_view path);

}  // namespace zenivo
