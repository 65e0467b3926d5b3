// The objects in memory, their values, and fetching them.

#include "store/graph/ObjectGraph.h"

#include <algorithm>
#include <stdexcept>

#include "store/graph/ManagedObjectContext.h"

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

/// Brings rows to the objects that wait for them, and awakens those afterwards.
class ObjectGraph::Collector : public RowReceiver {
 public:
  explicit Collector(ObjectGraph& graph) : graph_(graph) {}

  bool found(const ObjectID& id) override {
    at_ = graph_.objectFor(id);
    objects.push_back(at_);
    return at_->isFault();
  }

  void take(Row&& row) override {
    if (!at_->isFault()) return;
    graph_.adopt(*at_, std::move(row));
    awoken_.push_back(at_);
  }

  void awaken() {
    for (const ManagedObjectPtr& object : awoken_) graph_.keepGivenPartners(*object);
    for (const ManagedObjectPtr& object : awoken_) object->awakeFromFetch();
  }

  ManagedObjects objects;

 private:
  ObjectGraph& graph_;
  ManagedObjectPtr at_;
  ManagedObjects awoken_;
};

ObjectGraph::~ObjectGraph() {
  reset();
}

ManagedObjectPtr ObjectGraph::registered(const ObjectID& id) const {
  const auto found = registry_.find(id);
  return found != registry_.end() ? found->second.lock() : nullptr;
}

ManagedObjectPtr ObjectGraph::objectFor(const ObjectID& id) {
  ManagedObjectPtr object = registered(id);
  return object ? object : make(id.entity(), id);
}

ManagedObjectPtr ObjectGraph::make(const EntityDescription& entity, const ObjectID& id) {
  const ObjectFactory& factory = entity.objectFactory();
  ManagedObjectPtr object = factory ? factory() : std::make_shared<ManagedObject>();
  object->context_ = &context_;
  object->entity_ = &entity;
  object->id_ = id;
  enroll(object);
  return object;
}

void ObjectGraph::enroll(const ManagedObjectPtr& object) {
  if (registry_.size() >= purgeAt_) {
    std::erase_if(registry_, [](const auto& entry) { return entry.second.expired(); });
    purgeAt_ = std::max<std::size_t>(1024, registry_.size() * 2);
  }
  registry_[object->id_] = object;
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
  track(*object);
  return object;
}

ManagedObjects ObjectGraph::allRegistered() const {
  ManagedObjects objects;
  for (const auto& [id, weak] : registry_) {
    if (ManagedObjectPtr object = weak.lock()) objects.push_back(std::move(object));
  }
  return objects;
}

void ObjectGraph::track(ManagedObject& object) {
  if (object.state_ == State::clean) object.state_ = State::updated;
  if (object.isTracked_) return;
  object.isTracked_ = true;
  tracked_.push_back(object.shared_from_this());
}

void ObjectGraph::forgetChanges() {
  for (const ManagedObjectPtr& object : tracked_) object->isTracked_ = false;
  tracked_.clear();
}

/// The object is none of this context's any more.
void ObjectGraph::leave(ManagedObject& object) {
  registry_.erase(object.id_);
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
        setColumn(*other, inverse, {});
      }
    }
  }
  withdrawAll(object);
  object.oldValues_.clear();
  object.derived_.clear();
  object.values_.assign(object.entity_->properties().size(), Value());
  object.state_ = State::gone;
}

void ObjectGraph::reset() {
  forgetChanges();
  for (const ManagedObjectPtr& object : allRegistered()) object->context_ = nullptr;
  registry_.clear();
  permanentIDs_.clear();
  saved_.clear();
}

void ObjectGraph::adopt(ManagedObject& object, Row&& row) {
  object.values_ = std::move(row.values);
  object.version_ = row.version;
  keepListsOf(object);
  object.batch_ = nullptr;
}

/// What is read later may know of a move that the lists read earlier do not: they
/// follow the rows.
void ObjectGraph::keepListsOf(const ManagedObject& object) {
  const FaultBatch* batch = object.batch_.get();
  for (const RelationshipDescription* column : object.entity_->relationships()) {
    if (column->storage != RelationshipStorage::column) continue;
    const bool cameBy = batch != nullptr && batch->relationship == column->inverseRelationship;
    const ObjectID listedBy = cameBy ? batch->owner : ObjectID();
    keepListsInStep(object, *column, listedBy, object.values_[column->index].objectID());
  }
}

/// A partner that was given to another object here, unsaved, stays there, even if the row
/// that is read now was given it by others meanwhile.
void ObjectGraph::keepGivenPartners(ManagedObject& object) {
  for (const RelationshipDescription* column : object.entity_->relationships()) {
    const RelationshipDescription& inverse = *column->inverseRelationship;
    if (column->storage != RelationshipStorage::column || inverse.isToMany()) continue;
    const ManagedObjectPtr partner = registered(object.values_[column->index].objectID());
    if (partner == nullptr || partner->derived_.empty()) continue;
    const ObjectIDSet& given = partner->derived(inverse).added;
    if (!given.empty() && !given.contains(object.id_)) setColumn(object, *column, {});
  }
}

ObjectIDs ObjectGraph::idsToRealiseWith(const ManagedObject& object) const {
  if (object.batch_ == nullptr || isLarge(*object.entity_)) return {object.id_};
  const ObjectIDs& ids = object.batch_->ids;
  ObjectIDs together{object.id_};
  for (auto at = std::ranges::find(ids, object.id_);
       at != ids.end() && together.size() < kFaultsAtOnce; ++at) {
    const ManagedObjectPtr other = registered(*at);
    if (other != nullptr && other->isFault() && other.get() != &object) together.push_back(*at);
  }
  return together;
}

void ObjectGraph::realise(ManagedObject& object) {
  if (!object.isFault()) return;
  Collector collector(*this);
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
  Collector collector(*this);
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

ManagedObjects ObjectGraph::fetchFromSource(const FetchRequest& request) {
  Collector collector(*this);
  ground_()->fetch(request, collector);
  collector.awaken();
  return std::move(collector.objects);
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
        const ManagedObjectPtr member = registered(id);
        return member != nullptr && !member->isFault() &&
               committedColumn(*member, *relationship.inverseRelationship) != ids[i];
      });
    }
    owners[i]->derived(relationship).stored = ObjectIDSet(std::move(list));
  }
}

}  // namespace zenivo
