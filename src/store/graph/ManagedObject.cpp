#include "store/graph/ManagedObject.h"

#include <algorithm>
#include <stdexcept>

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectGraph.h"
#include "store/graph/PredicateEvaluator.h"
#include "store/predicates/KeyPath.h"

namespace zenivo {
namespace {

[[noreturn]] void refuse(const EntityDescription& entity, std::string_view key,
                         const char* reason) {
  throw std::invalid_argument("entity " + entity.name() + ": '" + std::string(key) + "' " + reason);
}

bool isInRow(const PropertyDescription& property) {
  const auto* relationship = asRelationship(&property);
  return relationship == nullptr || relationship->storage == RelationshipStorage::column;
}

}  // namespace

/// The graph for a call on this object; nullptr once the object left its context.
ObjectGraph* ManagedObject::graph() const {
  if (context_ == nullptr) return nullptr;
  context_->assertOnQueue();
  return context_->graph_.get();
}

ManagedObject& ManagedObject::self() const {
  return const_cast<ManagedObject&>(*this);
}

bool ManagedObject::isUpdated() const {
  if (state_ != State::updated) return false;
  return !oldValues_.empty() || std::ranges::any_of(derived_, &DerivedRelationship::hasChanges);
}

bool ManagedObject::hasChanges() const {
  return state_ == State::inserted || state_ == State::deleted || isUpdated();
}

const PropertyDescription& ManagedObject::property(std::string_view key) const {
  const PropertyDescription* found = entity_->propertyNamed(key);
  if (found == nullptr) refuse(*entity_, key, "is none of its properties");
  return *found;
}

const RelationshipDescription& ManagedObject::relationship(std::string_view key,
                                                           bool toMany) const {
  const auto* found = asRelationship(&property(key));
  if (found == nullptr || found->isToMany() != toMany) {
    refuse(*entity_, key, toMany ? "is no to-many relationship" : "is no to-one relationship");
  }
  return *found;
}

const ManagedObject::OldValue* ManagedObject::oldValueOf(
    const PropertyDescription& property) const {
  const auto found = std::ranges::find(oldValues_, &property, &OldValue::property);
  return found != oldValues_.end() ? &*found : nullptr;
}

DerivedRelationship& ManagedObject::derived(const RelationshipDescription& relationship) const {
  if (derived_.empty()) derived_.resize(entity_->derivedRelationships().size());
  return derived_[relationship.derivedIndex];
}

Value ManagedObject::valueForKey(std::string_view key) const {
  const PropertyDescription& wanted = property(key);
  ObjectGraph* const objects = graph();
  if (isInRow(wanted)) {
    if (objects != nullptr) objects->realise(self());
    return isFault() ? Value() : values_[wanted.index];
  }
  if (objects == nullptr) return {};
  const RelationshipDescription& relationship = *asRelationship(&wanted);
  if (relationship.isToMany()) return objects->relationships().members(self(), relationship);
  return objects->relationships().toOne(self(), relationship);
}

Value ManagedObject::valueForKeyPath(std::string_view keyPath) const {
  const KeyPath path = resolveKeyPath(*entity_, splitKeyPath(keyPath));
  if (std::ranges::any_of(path.hops, &RelationshipDescription::isToMany)) {
    refuse(*entity_, keyPath, "leads over a to-many relationship");
  }
  return valueAtKeyPath(path, *this);
}

void ManagedObject::setValue(Value value, std::string_view key) {
  const auto* attribute = asAttribute(&property(key));
  if (attribute == nullptr) refuse(*entity_, key, "is a relationship");
  std::optional<Value> coerced = attribute->coerced(std::move(value));
  if (!coerced) refuse(*entity_, key, "cannot hold a value of that type");
  if (ObjectGraph* const objects = graph()) {
    objects->relationships().setAttribute(*this, *attribute, std::move(*coerced));
  }
}

ManagedObjectPtr ManagedObject::relatedObjectForKey(std::string_view key) const {
  const RelationshipDescription& wanted = relationship(key, false);
  ObjectGraph* const objects = graph();
  const ObjectID id =
      objects != nullptr ? objects->relationships().toOne(self(), wanted) : ObjectID();
  const ManagedObjectPtr object = id ? objects->objectFor(id) : nullptr;
  return object == nullptr || object->state_ == State::gone ? nullptr : object;
}

ManagedObjects ManagedObject::relatedObjectsForKey(std::string_view key) const {
  const RelationshipDescription& wanted = relationship(key, true);
  ObjectGraph* const objects = graph();
  return objects != nullptr ? objects->relationships().memberObjects(self(), wanted)
                            : ManagedObjects();
}

std::size_t ManagedObject::relatedCountForKey(std::string_view key) const {
  const RelationshipDescription& wanted = relationship(key, true);
  ObjectGraph* const objects = graph();
  return objects != nullptr ? objects->relationships().members(self(), wanted).size() : 0;
}

/// The identity to put into a relationship; none for no object and for a deleted one.
ObjectID ManagedObject::destination(const ManagedObjectPtr& object,
                                    const RelationshipDescription& relationship) const {
  if (object == nullptr || object->isDeleted()) return {};
  if (object->context_ != context_) {
    refuse(*entity_, relationship.name, "cannot lead to an object of another context");
  }
  if (!object->entity().isKindOfEntity(*relationship.destinationEntity)) {
    refuse(*entity_, relationship.name, "does not lead to objects of that entity");
  }
  return object->objectID();
}

void ManagedObject::setRelatedObject(const ManagedObjectPtr& object, std::string_view key) {
  const RelationshipDescription& wanted = relationship(key, false);
  const ObjectID to = destination(object, wanted);
  if (ObjectGraph* const objects = graph()) objects->relationships().setToOne(*this, wanted, to);
}

void ManagedObject::addRelatedObject(const ManagedObjectPtr& object, std::string_view key) {
  const RelationshipDescription& wanted = relationship(key, true);
  const ObjectID to = destination(object, wanted);
  ObjectGraph* const objects = graph();
  if (objects != nullptr && to && !isDeleted()) objects->relationships().add(*this, wanted, to);
}

void ManagedObject::removeRelatedObject(const ManagedObjectPtr& object, std::string_view key) {
  const RelationshipDescription& wanted = relationship(key, true);
  const ObjectID to = destination(object, wanted);
  ObjectGraph* const objects = graph();
  if (objects != nullptr && to && !isDeleted()) objects->relationships().remove(*this, wanted, to);
}

void ManagedObject::setRelatedObjects(const ManagedObjects& wantedMembers, std::string_view key) {
  const RelationshipDescription& wanted = relationship(key, true);
  ObjectIDSet order;
  for (const ManagedObjectPtr& object : wantedMembers) {
    if (const ObjectID to = destination(object, wanted)) order.insert(to);
  }
  ObjectGraph* const objects = graph();
  if (objects == nullptr || isDeleted()) return;
  for (const ObjectID& member : objects->relationships().members(*this, wanted)) {
    if (!order.contains(member)) objects->relationships().remove(*this, wanted, member);
  }
  for (const ObjectID& member : order.ids()) objects->relationships().add(*this, wanted, member);
  if (wanted.isOrdered()) objects->relationships().setOrder(*this, wanted, order.ids());
}

void ManagedObject::insertRelatedObject(const ManagedObjectPtr& object, std::string_view key,
                                        std::size_t index) {
  const RelationshipDescription& wanted = relationship(key, true);
  if (!wanted.isOrdered()) refuse(*entity_, key, "is not ordered");
  const ObjectID to = destination(object, wanted);
  ObjectGraph* const objects = graph();
  if (objects == nullptr || !to || isDeleted()) return;
  objects->relationships().add(*this, wanted, to);
  ObjectIDs order = objects->relationships().members(*this, wanted);
  std::erase(order, to);
  order.insert(order.begin() + static_cast<std::ptrdiff_t>(std::min(index, order.size())), to);
  objects->relationships().setOrder(*this, wanted, std::move(order));
}

Value ManagedObject::committedValue(const PropertyDescription& property) const {
  if (state_ == State::inserted) return {};
  ObjectGraph* const objects = graph();
  if (isInRow(property)) {
    if (objects != nullptr) objects->realise(self());
    const OldValue* old = oldValueOf(property);
    return old != nullptr ? old->value : isFault() ? Value() : values_[property.index];
  }
  if (objects == nullptr) return {};
  const auto& relationship = *asRelationship(&property);
  const ObjectIDs& stored = objects->fetched(self(), relationship).stored->ids();
  if (relationship.isToMany()) return stored;
  return stored.empty() ? ObjectID() : stored.front();
}

ValuesByKey ManagedObject::changedValues() const {
  ValuesByKey changed;
  ObjectGraph* const objects = graph();
  if (objects == nullptr || isDeleted()) return changed;
  if (state_ == State::inserted) {
    for (const PropertyDescription* each : entity_->properties()) {
      if (each->isTransient || !isInRow(*each)) continue;
      if (!values_[each->index].isNull()) changed[each->name] = values_[each->index];
    }
  }
  for (const OldValue& old : oldValues_) {
    changed[old.property->name] = values_[old.property->index];
  }
  for (const RelationshipDescription* each : entity_->derivedRelationships()) {
    if (!derived_.empty() && derived(*each).hasChanges())
      changed[each->name] = valueForKey(each->name);
  }
  return changed;
}

ValuesByKey ManagedObject::committedValuesForKeys(const std::vector<std::string>& keys) const {
  ValuesByKey committed;
  for (const std::string& key : keys) committed[key] = committedValue(property(key));
  return committed;
}

ValuesByKey ManagedObject::committedValues() const {
  ValuesByKey committed;
  for (const PropertyDescription* each : entity_->properties()) {
    if (!each->isTransient) committed[each->name] = committedValue(*each);
  }
  return committed;
}

bool ManagedObject::validateForInsert(Error* error) const {
  return validateProperties(error);
}

bool ManagedObject::validateForUpdate(Error* error) const {
  return validateProperties(error);
}

bool ManagedObject::validateForDelete(Error*) const {
  return true;
}

bool ManagedObject::isMissing(const PropertyDescription& property) const {
  if (property.isOptional || property.isTransient) return false;
  const Value value = valueForKey(property.name);
  return value.isNull() || (value.holds<ObjectIDs>() && value.objectIDs().empty());
}

bool ManagedObject::validateProperties(Error* error) const {
  std::vector<Error> failures;
  const auto add = [&](StoreErrorCode code, const PropertyDescription& property, const char* what) {
    Error failure = makeStoreError(code, entity_->name() + "." + property.name + " " + what);
    failure.userInfo["object"] = id_.URIRepresentation();
    failure.userInfo["key"] = property.name;
    failures.push_back(std::move(failure));
  };
  for (const PropertyDescription* each : entity_->properties()) {
    if (isMissing(*each)) add(StoreErrorCode::missingMandatoryProperty, *each, "is missing");
    const auto* attribute = asAttribute(each);
    if (attribute != nullptr && !isFault() && !attribute->fits(values_[each->index])) {
      add(StoreErrorCode::numberOutOfRange, *each, "is out of the range of its type");
    }
  }
  if (failures.empty()) return true;
  if (failures.size() == 1) return fail(error, std::move(failures.front()));
  Error several = makeStoreError(StoreErrorCode::validationMultiple,
                                 entity_->name() + " has " + std::to_string(failures.size()) +
                                     " properties that are not valid");
  several.underlying = std::move(failures);
  return fail(error, std::move(several));
}

}  // namespace zenivo
