// Declarations of properties from their typed names.

#pragma once

#include <type_traits>

#include "data/stores/TypedKeys.h"
#include "store/model/ManagedObjectModel.h"

namespace zenivo {

template <class T>
constexpr AttributeType attributeTypeOf() {
  if constexpr (std::is_same_v<T, bool>) return AttributeType::boolean;
  if constexpr (std::is_same_v<T, std::int32_t>) return AttributeType::integer32;
  if constexpr (std::is_same_v<T, double>) return AttributeType::doubleNumber;
  if constexpr (std::is_same_v<T, float>) return AttributeType::floatNumber;
  if constexpr (std::is_same_v<T, Date>) return AttributeType::date;
  if constexpr (std::is_same_v<T, Data>) return AttributeType::binary;
  static_assert(std::is_same_v<T, std::string> || std::is_same_v<T, bool> ||
                std::is_same_v<T, std::int32_t> || std::is_floating_point_v<T> ||
                std::is_same_v<T, Date> || std::is_same_v<T, Data>);
  return AttributeType::string;
}

template <class T>
AttributeDeclaration declare(Attribute<T> attribute) {
  AttributeDeclaration declaration;
  declaration.name = attribute.key;
  declaration.type = attributeTypeOf<T>();
  return declaration;
}

/// The same for an attribute that objects are looked up by.
template <class T>
AttributeDeclaration declareKey(Attribute<T> attribute) {
  AttributeDeclaration declaration = declare(attribute);
  declaration.isIndexed = true;
  return declaration;
}

/// A relationship whose way back is `inverse`, the destination's own.
template <class T, class Back>
RelationshipDeclaration declare(ToOne<T> relationship, Back inverse) {
  RelationshipDeclaration declaration;
  declaration.name = relationship.key;
  declaration.destination = T::kEntityName;
  declaration.inverse = inverse.key;
  return declaration;
}
template <class T, class Back>
RelationshipDeclaration declare(ToMany<T> relationship, Back inverse,
                                DeleteRule deleteRule = DeleteRule::nullify) {
  RelationshipDeclaration declaration;
  declaration.name = relationship.key;
  declaration.destination = T::kEntityName;
  declaration.inverse = inverse.key;
  declaration.kind = RelationshipKind::toMany;
  declaration.deleteRule = deleteRule;
  return declaration;
}

template <class T>
EntityDeclaration declareEntity(std::vector<AttributeDeclaration> attributes,
                                std::vector<RelationshipDeclaration> relationships) {
  EntityDeclaration declaration;
  declaration.name = T::kEntityName;
  declaration.attributes = std::move(attributes);
  declaration.relationships = std::move(relationships);
  declaration.factory = makesObjectsOf<T>();
  return declaration;
}

}  // namespace zenivo
