// What the properties of an entity are.

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>

#include "store/model/Value.h"

namespace zenivo {

class EntityDescription;

/// Remarks on an entity or a property for those who walk the model, by key.
using UserInfo = std::map<std::string, Value, std::less<>>;

enum class AttributeType {
  integer16 = 100,
  integer32 = 200,
  integer64 = 300,
  doubleNumber = 500,
  floatNumber = 600,
  string = 700,
  boolean = 800,
  date = 900,
  binary = 1000,
  transformable = 1800,  ///< bytes in which the class of the object archives something
};

/// How many objects a relationship leads to.
enum class RelationshipKind { toOne, toMany, orderedToMany };

/// What becomes of the destinations when the object is deleted.
enum class DeleteRule {
  nullify,  ///< they lose their way back to it
  cascade,  ///< they are deleted too
};

/// Where the store keeps a relationship.
enum class RelationshipStorage {
  column,         ///< to-one: in the object's own row
  inverseColumn,  ///< in the rows of the destinations, as their inverse
  joinTable,      ///< many to many: in a table of pairs
};

/// A property of an entity.  Part of a model and unchangeable.
struct PropertyDescription {
  std::string name;
  bool isRelationship = false;
  bool isOptional = true;    ///< may be empty in a saved object
  bool isTransient = false;  ///< never leaves memory
  UserInfo userInfo;
  const EntityDescription* entity = nullptr;  ///< the entity that declares it
  std::size_t index = 0;  ///< place among the entity's properties, same in subentities
};

struct AttributeDescription : PropertyDescription {
  AttributeType type = AttributeType::string;
  bool isIndexed = false;  ///< fetches by its value need not read every row
  Value defaultValue;      ///< of a new object
  std::string valueTransformerName;

  /// The value as this attribute holds it: numbers converted (float rounded to
  /// single precision, boolean 0 or 1), everything else as it is.  Nullopt when
  /// the type cannot hold it.
  std::optional<Value> coerced(Value value) const;

  /// False for an integer beyond the attribute's width.
  bool fits(const Value& value) const;
};

struct RelationshipDescription : PropertyDescription {
  const EntityDescription* destinationEntity = nullptr;
  const RelationshipDescription* inverseRelationship = nullptr;
  RelationshipKind kind = RelationshipKind::toOne;
  DeleteRule deleteRule = DeleteRule::nullify;
  RelationshipStorage storage = RelationshipStorage::column;
  std::size_t derivedIndex = 0;  ///< place among those not kept in the object's own row

  bool isToMany() const { return kind != RelationshipKind::toOne; }
  bool isOrdered() const { return kind == RelationshipKind::orderedToMany; }
};

/// The property as what it is; nullptr when it is the other kind.
const AttributeDescription* asAttribute(const PropertyDescription* property);
const RelationshipDescription* asRelationship(const PropertyDescription* property);

}  // namespace zenivo
