#include "store/predicates/KeyPath.h"

#include <algorithm>
#include <stdexcept>

namespace zenivo {

std::vector<std::string> splitKeyPath(std::string_view path) {
  std::vector<std::string> keys;
  for (;;) {
    const std::size_t dot = path.find('.');
    keys.emplace_back(path.substr(0, dot));
    if (dot == std::string_view::npos) return keys;
    path.remove_prefix(dot + 1);
  }
}

KeyPath resolveKeyPath(const EntityDescription& entity, const std::vector<std::string>& keys) {
  KeyPath path;
  const EntityDescription* at = &entity;
  for (const std::string& key : keys) {
    const PropertyDescription* property = at->propertyNamed(key);
    if (property == nullptr || path.attribute != nullptr) {
      throw std::invalid_argument("entity " + at->name() + " has no key path over '" + key + "'");
    }
    path.attribute = asAttribute(property);
    if (const auto* relationship = asRelationship(property)) {
      path.hops.push_back(relationship);
      at = relationship->destinationEntity;
    }
  }
  return path;
}

KeyPath resolveSortKeyPath(const EntityDescription& entity, std::string_view text) {
  KeyPath path = resolveKeyPath(entity, splitKeyPath(text));
  const bool overMany = std::ranges::any_of(path.hops, &RelationshipDescription::isToMany);
  if (overMany || path.attribute == nullptr || path.attribute->isTransient) {
    throw std::invalid_argument("entity " + entity.name() + " cannot be sorted by '" +
                                std::string(text) + "'");
  }
  return path;
}

}  // namespace zenivo
