#include "store/graph/ObjectGraph.h"

#include <algorithm>
#include <stdexcept>

#include "store/graph/ManagedObjectContext.h"
#include "store/graph/ObjectCollector.h"

namespace zenivo {
namespace {

/// Faults that are fetched together when one of them is needed.
constexpr std::size_t kFaultsAtOnce = 100;

/// Objects with binary attributes may be large: they come one by one.
bool isLarge(const EntityDescription& entity) {
  return std::ranges::any_of(entity.attributes(), [](const AttributeDescription* attribute) {
    return attribute->type == AttributeType::binary;
  });
}

}  // namespace

ManagedObjectPtr ObjectGraph::objectFor(const ObjectID& id) {
  ManagedObjectPtr object = registry_.find(id);
  return object ? object : make(id.entity(), id);
}

ManagedObjectPtr ObjectGraph::make(const EntityDescription& entity, const ObjectID& id) {
  const ObjectFactory& factory = entity.objectFactory();
  ManagedObjectPtr object = factory ? factory() : std::make_shared<ManagedObject>();
  object->context_ = &context_;
  object->entity_ = &entity;
  object->id_ = id;
  registry_.enroll(id, object);
  return object;
}

ManagedObjectPtr ObjectGraph::insert(const EntityDescription& entity) {
  ManagedObjectPtr object = insertWithID(ObjectID::makeTemporaryID(entity));
  for (const AttributeDescription* attribute : entity.attributes()) {
    object->values_[attribute->index] = attribute->defaultValue;
  }
  object->awakeFromInsert();
  return object;
}

ManagedObjectPtr ObjectGraph::insertWithID(const ObjectID& id) {
  ManagedObjectPtr object = make(id.entity(), id);
  object->values_.resize(id.entity().properties().size());
  object->state_ = State::inserted;
  changes_.add(*object);
  return object;
}

/// The object is none of this context's any more.
void ObjectGraph::leave(ManagedObject& object) {
  registry_.forget(object.id_);
  object.state_ = State::gone;
  object.context_ = nullptr;
}

/// The object's row is gone: it stays as one that was deleted, with nothing in it.
void ObjectGraph::vanish(ManagedObject& object) {
  for (const RelationshipDescription* each : object.entity_->derivedRelationships()) {
    const RelationshipDescription& inverse = *each->inverseRelationship;
    const ObjectIDs joined = object.derived(*each).added.ids();
    for (const ObjectID& id : joined) {
      const ManagedObjectPtr other = objectFor(id);
      if (each->storage == RelationshipStorage::joinTable) {
        other->derived(inverse).added.erase(object.id_);
      } else {
        relationships_.setColumn(*other, inverse, {});
      }
    }
  }
  relationships_.withdrawAll(object);
  object.oldValues_.clear();
  object.derived_.clear();
  object.values_.assign(object.entity_->properties().size(), Value());
  object.state_ = State::gone;
}

void ObjectGraph::adopt(ManagedObject& object, Row&& row) {
  object.values_ = std::move(row.values);
  object.version_ = row.version;
  relationships_.keepListsOf(object);
  object.batch_ = nullptr;
}

ObjectIDs ObjectGraph::idsToRealiseWith(const ManagedObject& object) const {
  if (object.batch_ == nullptr || isLarge(*object.entity_)) return {object.id_};
  const ObjectIDs& ids = object.batch_->ids;
  ObjectIDs together{object.id_};
  for (auto at = std::ranges::find(ids, object.id_);
       at != ids.end() && together.size() < kFaultsAtOnce; ++at) {
    const ManagedObjectPtr other = registry_.find(*at);
    if (other != nullptr && other->isFault() && other.get() != &object) together.push_back(*at);
  }
  return together;
}

void ObjectGraph::realise(ManagedObject& object) {
  if (!object.isFault()) return;
  ObjectCollector collector(*this);
  ground_()->rows(idsToRealiseWith(object), collector);
  if (object.isFault()) vanish(object);
  collector.awaken();
}

ManagedObjects ObjectGraph::realised(const ObjectIDs& ids) {
  ManagedObjects objects;
  ObjectIDs faults;
  objects.reserve(ids.size());
  for (const ObjectID& id : ids) {
    objects.push_back(objectFor(id));
    if (objects.back()->isFault()) faults.push_back(id);
  }
  if (faults.empty()) return objects;
  ObjectCollector collector(*this);
  ground_()->rows(faults, collector);
  for (const ManagedObjectPtr& object : objects) {
    if (object->isFault()) vanish(*object);
  }
  collector.awaken();
  return objects;
}

void ObjectGraph::turnIntoFault(ManagedObject& object) {
  object.values_.clear();
  for (DerivedRelationship& each : object.derived_) each.stored.reset();
}

DerivedRelationship& ObjectGraph::fetched(ManagedObject& object,
                                          const RelationshipDescription& relationship) {
  DerivedRelationship& derived = object.derived(relationship);
  if (derived.stored) return derived;
  const bool hasRow = object.state_ != State::inserted && object.state_ != State::gone;
  if (hasRow) {
    fetchMembers({object.shared_from_this()}, relationship);
  } else {
    derived.stored.emplace();
  }
  return derived;
}

void ObjectGraph::fetchMembers(const ManagedObjects& owners,
                               const RelationshipDescription& relationship) {
  ObjectIDs ids;
  for (const ManagedObjectPtr& owner : owners) ids.push_back(owner->id_);
  std::vector<ObjectIDs> lists = ground_()->destinations(ids, relationship);
  for (std::size_t i = 0; i < owners.size(); ++i) {
    ObjectIDs& list = lists[i];
    if (relationship.storage == RelationshipStorage::inverseColumn) {
      // Objects in memory that lead elsewhere are believed.
      std::erase_if(list, [&](const ObjectID& id) {
        const ManagedObjectPtr member = registry_.find(id);
        return member != nullptr && !member->isFault() &&
               relationships_.committedColumn(*member, *relationship.inverseRelationship) != ids[i];
      });
    }
    owners[i]->derived(relationship).stored = ObjectIDSet(std::move(list));
  }
}

void ObjectGraph::reset() {
  changes_.take();
  for (const ManagedObjectPtr& object : registry_.all()) object->context_ = nullptr;
  registry_.clear();
  identities_.clear();
}

}  // namespace zenivo
