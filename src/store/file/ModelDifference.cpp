#include "store/file/ModelDifference.h"

#include <algorithm>

#include "store/model/ModelText.h"
#include "store/model/StoreError.h"

namespace zenivo {
namespace {

[[noreturn]] void refuse(const std::string& what) {
  throw StoreFailure(StoreErrorCode::cannotInferMigration, what);
}

bool hasRemark(const PropertyRecord& record, const char* remark) {
  return std::ranges::find(record.remarks, remark) != record.remarks.end();
}

void compareProperty(const PropertyDescription& property, const PropertyRecord* old,
                     const PropertyRecord& now, ModelDifference& difference) {
  const std::string name = property.entity->name() + "." + property.name;
  const bool isStored = old != nullptr && !hasRemark(*old, "transient");
  if (isStored && (old->type != now.type || old->destination != now.destination ||
                   old->inverse != now.inverse)) {
    refuse(name + " changed its type");
  }
  const bool mayBeEmpty = !isStored || !hasRemark(*old, "required");
  const auto* attribute = asAttribute(&property);
  const bool hasDefault = attribute != nullptr && !attribute->defaultValue.isNull();
  if (!property.isOptional && mayBeEmpty && !hasDefault) {
    refuse(name + " must not be empty and has no default value");
  }
  const bool needsFilling = !isStored || (!property.isOptional && mayBeEmpty);
  if (hasDefault && needsFilling) difference.attributesToFill.push_back(attribute);
}

}  // namespace

ModelDifference inferModelDifference(const StoreCatalogue& catalogue,
                                     const ManagedObjectModel& model) {
  ModelDifference difference;
  for (const CatalogueEntity& entity : catalogue.entities) {
    if (model.entityNamed(entity.name) == nullptr) {
      difference.removedEntities.push_back(entity.name);
    }
  }
  for (const auto& entity : model.entities()) {
    const CatalogueEntity* known = catalogue.entityNamed(entity->name());
    if (known == nullptr) continue;
    const EntityRecord old = known->record();
    const EntityRecord now = recordOfEntity(*entity);
    if (old.superentity != now.superentity) {
      refuse(entity->name() + " moved in the hierarchy of entities");
    }
    difference.removesProperties |=
        std::ranges::any_of(old.properties, [&](const PropertyRecord& record) {
          return !hasRemark(record, "transient") && now.propertyNamed(record.name) == nullptr;
        });
    for (const PropertyRecord& record : now.properties) {
      const PropertyDescription& property = *entity->propertyNamed(record.name);
      if (property.isTransient) continue;
      compareProperty(property, old.propertyNamed(record.name), record, difference);
    }
  }
  return difference;
}

}  // namespace zenivo
