#include "store/model/ManagedObjectModel.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <stdexcept>

#include "store/model/ModelVersion.h"

namespace zenivo {
namespace {

[[noreturn]] void refuse(const std::string& reason) {
  throw std::invalid_argument("model: " + reason);
}

void requireName(const std::string& name) {
  const auto isWord = [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; };
  const bool good = !name.empty() && std::isalpha(static_cast<unsigned char>(name[0])) != 0 &&
                    std::ranges::all_of(name, isWord);
  if (!good) refuse("'" + name + "' is no name");
}

std::string lowerCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

/// Turns declarations into descriptions, in steps that each need the one before.
class ModelBuilder {
 public:
  explicit ModelBuilder(std::vector<EntityDeclaration> declarations)
      : declarations_(std::move(declarations)) {}

  std::shared_ptr<const ManagedObjectModel> build(std::vector<std::string> releasedVersions) {
    model_->releasedVersions_ = std::move(releasedVersions);
    for (const EntityDeclaration& declaration : declarations_) addEntity(declaration);
    for (const EntityDeclaration& declaration : declarations_) placeInHierarchy(declaration);
    for (const EntityDeclaration& declaration : declarations_) addProperties(declaration);
    for (const EntityDeclaration& declaration : declarations_) connectRelationships(declaration);
    for (const auto& entity : model_->entities_) gather(*entity);
    for (const auto& entity : model_->entities_) {
      const EntityRecord record = recordOfEntity(*entity);
      entity->versionHash_ = versionHashOf(record);
      entity->storedHash_ = storedHashOf(record);
    }
    model_->versionHash_ = modelHashOf(model_->entityVersionHashesByName());
    return model_;
  }

 private:
  EntityDescription& entity(const std::string& name) {
    const auto found = model_->byName_.find(name);
    if (found == model_->byName_.end()) refuse("there is no entity '" + name + "'");
    return const_cast<EntityDescription&>(*found->second);
  }

  void addEntity(const EntityDeclaration& declaration) {
    requireName(declaration.name);
    for (const auto& known : model_->entities_) {
      if (lowerCase(known->name_) == lowerCase(declaration.name)) {
        refuse("'" + declaration.name + "' is declared twice");
      }
    }
    auto made = std::make_unique<EntityDescription>();
    made->name_ = declaration.name;
    made->model_ = model_.get();
    made->isAbstract_ = declaration.isAbstract;
    made->userInfo_ = declaration.userInfo;
    made->factory_ = declaration.factory;
    model_->byName_[made->name_] = made.get();
    model_->entities_.push_back(std::move(made));
  }

  void placeInHierarchy(const EntityDeclaration& declaration) {
    if (declaration.superentity.empty()) return;
    EntityDescription& below = entity(declaration.name);
    EntityDescription& above = entity(declaration.superentity);
    if (above.isKindOfEntity(below)) refuse("'" + below.name_ + "' would stand above itself");
    below.superentity_ = &above;
    above.subentities_.push_back(&below);
  }

  void addProperties(const EntityDeclaration& declaration) {
    EntityDescription& owner = entity(declaration.name);
    for (const AttributeDeclaration& from : declaration.attributes) {
      auto made = std::make_unique<AttributeDescription>();
      made->name = from.name;
      made->isOptional = from.isOptional;
      made->isTransient = from.isTransient;
      made->userInfo = from.userInfo;
      made->entity = &owner;
      made->type = from.type;
      made->isIndexed = from.isIndexed;
      made->valueTransformerName = from.valueTransformerName;
      const auto initial = made->coerced(from.defaultValue);
      if (!initial) refuse(owner.name_ + "." + from.name + " cannot hold its default value");
      made->defaultValue = *initial;
      owner.ownAttributes_.push_back(std::move(made));
    }
    for (const RelationshipDeclaration& from : declaration.relationships) {
      auto made = std::make_unique<RelationshipDescription>();
      made->name = from.name;
      made->isRelationship = true;
      made->isOptional = from.isOptional;
      made->userInfo = from.userInfo;
      made->entity = &owner;
      made->destinationEntity = &entity(from.destination);
      made->kind = from.kind;
      made->deleteRule = from.deleteRule;
      owner.ownRelationships_.push_back(std::move(made));
    }
  }

  RelationshipDescription& ownRelationship(EntityDescription& owner, const std::string& name) {
    const auto found = std::ranges::find(owner.ownRelationships_, name,
                                         [](const auto& each) { return each->name; });
    if (found == owner.ownRelationships_.end()) {
      refuse(owner.name_ + " declares no relationship '" + name + "'");
    }
    return **found;
  }

  void connectRelationships(const EntityDeclaration& declaration) {
    EntityDescription& owner = entity(declaration.name);
    for (const RelationshipDeclaration& from : declaration.relationships) {
      RelationshipDescription& forth = ownRelationship(owner, from.name);
      RelationshipDescription& back = ownRelationship(entity(from.destination), from.inverse);
      if (back.destinationEntity != &owner || &back == &forth) {
        refuse(owner.name_ + "." + from.name + " and " + from.destination + "." + from.inverse +
               " are not each other's inverse");
      }
      forth.inverseRelationship = &back;
      forth.storage = storageOf(forth, back);
    }
    for (const auto& forth : owner.ownRelationships_) {
      const RelationshipDescription* back = forth->inverseRelationship;
      const bool agree =
          back->inverseRelationship == nullptr || back->inverseRelationship == forth.get();
      if (!agree) refuse(owner.name_ + "." + forth->name + " shares its inverse with another");
    }
  }

  /// A to-one lies in its own row; of a pair of to-ones the one whose full name
  /// comes first does.
  static RelationshipStorage storageOf(const RelationshipDescription& forth,
                                       const RelationshipDescription& back) {
    if (forth.isToMany() && back.isToMany()) return RelationshipStorage::joinTable;
    if (forth.isToMany()) return RelationshipStorage::inverseColumn;
    if (back.isToMany()) return RelationshipStorage::column;
    const auto fullName = [](const RelationshipDescription& side) {
      return side.entity->name() + "." + side.name;
    };
    return fullName(forth) < fullName(back) ? RelationshipStorage::column
                                            : RelationshipStorage::inverseColumn;
  }

  /// Numbers the properties, those of the superentity first.
  void gather(EntityDescription& owner) {
    if (owner.root_ != nullptr) return;
    owner.root_ = &owner;
    if (owner.superentity_ != nullptr) {
      EntityDescription& above = entity(owner.superentity_->name_);
      gather(above);
      owner.root_ = above.root_;
      owner.properties_ = above.properties_;
      owner.attributes_ = above.attributes_;
      owner.relationships_ = above.relationships_;
      owner.derived_ = above.derived_;
      if (!owner.factory_) owner.factory_ = above.factory_;
    }
    for (const auto& own : owner.ownAttributes_) {
      own->index = owner.properties_.size();
      owner.properties_.push_back(own.get());
      owner.attributes_.push_back(own.get());
    }
    for (const auto& own : owner.ownRelationships_) {
      own->index = owner.properties_.size();
      owner.properties_.push_back(own.get());
      owner.relationships_.push_back(own.get());
      if (own->storage == RelationshipStorage::column) continue;
      own->derivedIndex = owner.derived_.size();
      owner.derived_.push_back(own.get());
    }
    index(owner);
  }

  void index(EntityDescription& owner) {
    std::set<std::string> names;
    for (const PropertyDescription* property : owner.properties_) {
      requireName(property->name);
      if (!names.insert(lowerCase(property->name)).second) {
        refuse(owner.name_ + " has two properties '" + property->name + "'");
      }
      owner.byName_[property->name] = property;
    }
  }

  std::vector<EntityDeclaration> declarations_;
  std::shared_ptr<ManagedObjectModel> model_ = std::make_shared<ManagedObjectModel>();
};

bool EntityDescription::isKindOfEntity(const EntityDescription& other) const {
  const EntityDescription* at = this;
  while (at != nullptr && at != &other) at = at->superentity_;
  return at != nullptr;
}

const PropertyDescription* EntityDescription::propertyNamed(std::string_view name) const {
  const auto found = byName_.find(name);
  return found != byName_.end() ? found->second : nullptr;
}

std::shared_ptr<const ManagedObjectModel> ManagedObjectModel::make(
    std::vector<EntityDeclaration> declarations, std::vector<std::string> releasedVersions) {
  return ModelBuilder(std::move(declarations)).build(std::move(releasedVersions));
}

const EntityDescription* ManagedObjectModel::entityNamed(std::string_view name) const {
  const auto found = byName_.find(name);
  return found != byName_.end() ? found->second : nullptr;
}

std::map<std::string, Data> ManagedObjectModel::entityVersionHashesByName() const {
  std::map<std::string, Data> hashes;
  for (const auto& entity : entities_) hashes[entity->name()] = entity->versionHash();
  return hashes;
}

std::map<std::string, Data> ManagedObjectModel::entityStoredHashesByName() const {
  std::map<std::string, Data> hashes;
  for (const auto& entity : entities_) hashes[entity->name()] = entity->storedHash();
  return hashes;
}

bool ManagedObjectModel::isReleasedVersion(std::string_view hash) const {
  return std::ranges::find(releasedVersions_, hash) != releasedVersions_.end();
}

}  // namespace zenivo
