// The schema of a store, declared in code.

#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/model/EntityDescription.h"

namespace zenivo {

struct AttributeDeclaration {
  std::string name = {};
  AttributeType type = AttributeType::string;
  bool isOptional = true;
  bool isTransient = false;
  bool isIndexed = false;
  Value defaultValue = {};
  std::string valueTransformerName = {};
  UserInfo userInfo = {};
};

struct RelationshipDeclaration {
  std::string name = {};
  std::string destination = {};  ///< an entity
  std::string inverse = {};      ///< the relationship there that leads back
  RelationshipKind kind = RelationshipKind::toOne;
  DeleteRule deleteRule = DeleteRule::nullify;
  bool isOptional = true;
  UserInfo userInfo = {};
};

struct EntityDeclaration {
  std::string name = {};
  std::string superentity = {};  ///< empty for none
  bool isAbstract = false;       ///< only subentities have objects
  std::vector<AttributeDeclaration> attributes = {};
  std::vector<RelationshipDeclaration> relationships = {};
  UserInfo userInfo = {};
  ObjectFactory factory = {};  ///< empty: plain ManagedObject, or as the superentity
};

/// A set of entities that refer to one another.  Unchangeable and safe to share
/// between threads; everything below a model is valid while the model lives.
class ManagedObjectModel {
 public:
  /// REQUIRES: names are letters, digits and underscores, begin with a letter, and
  /// differ by more than case within an entity's hierarchy; every relationship has
  /// an inverse that leads back to it.  Throws std::invalid_argument naming what
  /// does not fit.
  /// `releasedVersions` are the version hashes of the models that programs were given to
  /// users with: stores of these can be brought up to date.
  static std::shared_ptr<const ManagedObjectModel> make(
      std::vector<EntityDeclaration> declarations, std::vector<std::string> releasedVersions = {});

  /// In the order of declaration.
  const std::vector<std::unique_ptr<EntityDescription>>& entities() const { return entities_; }

  /// The entity of that name; nullptr when there is none.
  const EntityDescription* entityNamed(std::string_view name) const;

  std::map<std::string, Data> entityVersionHashesByName() const;
  std::map<std::string, Data> entityStoredHashesByName() const;
  /// The hash of entityVersionHashesByName(); see ModelVersion.h.
  const std::string& versionHash() const { return versionHash_; }
  bool isReleasedVersion(std::string_view hash) const;

 private:
  friend class ModelBuilder;

  std::vector<std::unique_ptr<EntityDescription>> entities_;
  std::map<std::string, const EntityDescription*, std::less<>> byName_;
  std::string versionHash_;
  std::vector<std::string> releasedVersions_;
};

}  // namespace zenivo
