#include "store/predicates/BoundPredicate.h"

#include <stdexcept>

namespace zenivo {
namespace {

bool searchesText(PredicateOperator comparison) {
  return comparison == PredicateOperator::beginsWith || comparison == PredicateOperator::contains;
}

bool ordersValues(PredicateOperator comparison) {
  return comparison == PredicateOperator::less || comparison == PredicateOperator::lessOrEqual ||
         comparison == PredicateOperator::greater ||
         comparison == PredicateOperator::greaterOrEqual;
}

bool canCompare(const AttributeDescription& attribute, const Value& value) {
  switch (attribute.type) {
    case AttributeType::string:
      return value.holds<std::string>();
    case AttributeType::date:
      return value.holds<Date>();
    case AttributeType::binary:
    case AttributeType::transformable:
      return value.holds<Data>();
    default:
      return value.real().has_value();
  }
}

std::string nameOf(const PredicateNode& node) {
  std::string name;
  for (const std::string& key : node.keyPath) name += (name.empty() ? "" : ".") + key;
  return name.empty() ? "SELF" : name;
}

[[noreturn]] void refuse(const PredicateNode& node, const std::string& reason) {
  throw std::invalid_argument("predicate: '" + nameOf(node) + "' " + reason);
}

}  // namespace

BoundPredicate::BoundPredicate(const PredicateNode& source, const EntityDescription& entity)
    : node(&source) {
  if (source.kind == PredicateNode::Kind::comparison) bindComparison(entity);
  parts.reserve(source.parts.size());
  for (const PredicateNode& part : source.parts) parts.emplace_back(part, entity);
}

void BoundPredicate::bindComparison(const EntityDescription& entity) {
  path = resolveKeyPath(entity, node->keyPath);
  for (std::size_t i = 0; i < path.hops.size(); ++i) {
    if (!path.hops[i]->isToMany()) continue;
    if (manyHop != kNone) refuse(*node, "leads over two to-many relationships");
    manyHop = i;
  }
  if (node->counts && (manyHop + 1 != path.hops.size() || path.attribute != nullptr)) {
    refuse(*node, "has nothing to count");
  }
  if (node->any != (manyHop != kNone && !node->counts)) {
    refuse(*node, node->any ? "has no members for ANY" : "needs ANY");
  }
  if (path.attribute != nullptr && path.attribute->isTransient) {
    refuse(*node, "is not kept in the store");
  }
  requireComparable(node->value);
  for (const Value& value : node->values) requireComparable(value);
}

void BoundPredicate::requireComparable(const Value& value) const {
  if (node->counts) {
    if (!value.real() || searchesText(node->comparison)) {
      refuse(*node, "counts members and compares with a number only");
    }
    return;
  }
  const bool isText = path.attribute != nullptr && path.attribute->type == AttributeType::string;
  if (searchesText(node->comparison) && !isText) refuse(*node, "is no text");
  if (ordersValues(node->comparison) && path.attribute == nullptr) refuse(*node, "has no order");
  if (value.isNull()) return;
  const bool fits =
      path.attribute != nullptr ? canCompare(*path.attribute, value) : value.holds<ObjectID>();
  if (!fits) refuse(*node, "cannot be compared with a value of that type");
}

void BoundPredicate::addRelatedEntities(std::set<const EntityDescription*>& entities) const {
  for (const BoundPredicate& part : parts) part.addRelatedEntities(entities);
  for (const RelationshipDescription* hop : path.hops) {
    // Whose identity stands in the object's own row depends on that row alone.
    const bool isOwnValue = hop == path.hops.back() && path.hops.size() == 1 &&
                            path.attribute == nullptr &&
                            hop->storage == RelationshipStorage::column;
    if (!isOwnValue) entities.insert(&hop->destinationEntity->rootEntity());
  }
}

}  // namespace zenivo
