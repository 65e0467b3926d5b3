#include "store/graph/PredicateEvaluator.h"

#include <algorithm>

namespace zenivo {
namespace {

bool meetsComparison(const BoundPredicate& predicate, const Value& value) {
  const PredicateNode& node = *predicate.node;
  const auto ordered = [&](auto test) {
    return !value.isNull() && !node.value.isNull() && test(compareValues(value, node.value));
  };
  const auto equals = [&value](const Value& other) { return compareValues(value, other) == 0; };
  switch (node.comparison) {
    case PredicateOperator::equal:
      return equals(node.value);
    case PredicateOperator::notEqual:
      return !equals(node.value);
    case PredicateOperator::less:
      return ordered([](auto order) { return order < 0; });
    case PredicateOperator::lessOrEqual:
      return ordered([](auto order) { return order <= 0; });
    case PredicateOperator::greater:
      return ordered([](auto order) { return order > 0; });
    case PredicateOperator::greaterOrEqual:
      return ordered([](auto order) { return order >= 0; });
    case PredicateOperator::in:
      return std::ranges::any_of(node.values, equals);
    case PredicateOperator::beginsWith:
    case PredicateOperator::contains:
      return !value.isNull() && !node.value.isNull() &&
             foldedTextMatches(value.string(), foldedText(node.value.string(), predicate.folding()),
                               predicate.folding(),
                               node.comparison == PredicateOperator::beginsWith);
  }
  return false;
}

/// The object after so many hops; nullptr where one leads nowhere.
ManagedObjectPtr follow(const KeyPath& path, std::size_t from, std::size_t to,
                        ManagedObjectPtr object) {
  for (std::size_t i = from; i < to && object != nullptr; ++i) {
    object = object->relatedObjectForKey(path.hops[i]->name);
  }
  return object;
}

Value valueOf(const KeyPath& path, const ManagedObjectPtr& end) {
  if (end == nullptr) return {};
  return path.attribute != nullptr ? end->valueForKey(path.attribute->name)
                                   : Value(end->objectID());
}

ManagedObjectPtr self(const ManagedObject& object) {
  return std::const_pointer_cast<ManagedObject>(object.shared_from_this());
}

bool anyMemberMeets(const BoundPredicate& predicate, const ManagedObject& object) {
  const KeyPath& path = predicate.path;
  const ManagedObjectPtr owner = follow(path, 0, predicate.manyHop, self(object));
  if (owner == nullptr) return false;
  const ManagedObjects members = owner->relatedObjectsForKey(path.hops[predicate.manyHop]->name);
  return std::ranges::any_of(members, [&](const ManagedObjectPtr& member) {
    const ManagedObjectPtr end = follow(path, predicate.manyHop + 1, path.hops.size(), member);
    return meetsComparison(predicate, valueOf(path, end));
  });
}

Value memberCount(const BoundPredicate& predicate, const ManagedObject& object) {
  const ManagedObjectPtr owner = follow(predicate.path, 0, predicate.manyHop, self(object));
  if (owner == nullptr) return 0;
  const std::string& key = predicate.path.hops[predicate.manyHop]->name;
  return static_cast<std::int64_t>(owner->relatedCountForKey(key));
}

}  // namespace

Value valueAtKeyPath(const KeyPath& path, const ManagedObject& object) {
  return valueOf(path, follow(path, 0, path.hops.size(), self(object)));
}

bool meets(const BoundPredicate& predicate, const ManagedObject& object) {
  const auto holds = [&object](const BoundPredicate& part) { return meets(part, object); };
  switch (predicate.node->kind) {
    case PredicateNode::Kind::conjunction:
      return std::ranges::all_of(predicate.parts, holds);
    case PredicateNode::Kind::disjunction:
      return std::ranges::any_of(predicate.parts, holds);
    case PredicateNode::Kind::comparison:
      break;
  }
  if (predicate.node->counts) return meetsComparison(predicate, memberCount(predicate, object));
  if (predicate.node->any) return anyMemberMeets(predicate, object);
  return meetsComparison(predicate, valueAtKeyPath(predicate.path, object));
}

PredicateArgument::PredicateArgument(const ManagedObject& object) : value_(object.objectID()) {}

bool Predicate::evaluateWithObject(const ManagedObject& object) const {
  return meets(BoundPredicate(*root_, object.entity()), object);
}

}  // namespace zenivo
