// What the objects of a store are.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/model/PropertyDescription.h"

namespace zenivo {

class ManagedObject;
class ManagedObjectModel;

/// Makes an empty object of an entity's class.
using ObjectFactory = std::function<std::shared_ptr<ManagedObject>()>;

/// The factory of a class derived from ManagedObject.
template <class T>
ObjectFactory makesObjectsOf() {
  return [] { return std::make_shared<T>(); };
}

/// An entity of a model: its name, its place in the hierarchy and its properties,
/// inherited ones first.  Unchangeable; lives as long as its model.
class EntityDescription {
 public:
  const std::string& name() const { return name_; }
  const ManagedObjectModel& managedObjectModel() const { return *model_; }
  bool isAbstract() const { return isAbstract_; }
  const UserInfo& userInfo() const { return userInfo_; }

  const EntityDescription* superentity() const { return superentity_; }
  /// The entity without superentity above this one; all below it share a table.
  const EntityDescription& rootEntity() const { return *root_; }
  /// Direct subentities in the order of their declaration.
  const std::vector<const EntityDescription*>& subentities() const { return subentities_; }
  /// True when `other` is this entity or above it.
  bool isKindOfEntity(const EntityDescription& other) const;

  /// All properties by index, inherited ones first.
  const std::vector<const PropertyDescription*>& properties() const { return properties_; }
  const std::vector<const AttributeDescription*>& attributes() const { return attributes_; }
  const std::vector<const RelationshipDescription*>& relationships() const {
    return relationships_;
  }
  /// Relationships that the object's own row does not hold, by derivedIndex.
  const std::vector<const RelationshipDescription*>& derivedRelationships() const {
    return derived_;
  }

  /// The property of that name; nullptr when there is none.
  const PropertyDescription* propertyNamed(std::string_view name) const;
  const AttributeDescription* attributeNamed(std::string_view name) const {
    return asAttribute(propertyNamed(name));
  }
  const RelationshipDescription* relationshipNamed(std::string_view name) const {
    return asRelationship(propertyNamed(name));
  }

  /// See ModelVersion.h.
  const Data& versionHash() const { return versionHash_; }
  const Data& storedHash() const { return storedHash_; }

  /// Empty: plain ManagedObject.
  const ObjectFactory& objectFactory() const { return factory_; }

 private:
  friend class ModelBuilder;

  struct NameHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const {
      return std::hash<std::string_view>{}(name);
    }
  };

  std::string name_;
  const ManagedObjectModel* model_ = nullptr;
  bool isAbstract_ = false;
  UserInfo userInfo_;
  const EntityDescription* superentity_ = nullptr;
  const EntityDescription* root_ = nullptr;
  std::vector<const EntityDescription*> subentities_;
  std::vector<std::unique_ptr<AttributeDescription>> ownAttributes_;
  std::vector<std::unique_ptr<RelationshipDescription>> ownRelationships_;
  std::vector<const PropertyDescription*> properties_;
  std::vector<const AttributeDescription*> attributes_;
  std::vector<const RelationshipDescription*> relationships_;
  std::vector<const RelationshipDescription*> derived_;
  std::unordered_map<std::string, const PropertyDescription*, NameHash, std::equal_to<>> byName_;
  Data versionHash_;
  Data storedHash_;
  ObjectFactory factory_;
};

}  // namespace zenivo
