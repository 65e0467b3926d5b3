#include "store/file/SqlQuery.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace zenivo {
namespace {

const char* symbolOf(PredicateOperator comparison) {
  switch (comparison) {
    case PredicateOperator::less:
      return " < ";
    case PredicateOperator::lessOrEqual:
      return " <= ";
    case PredicateOperator::greater:
      return " > ";
    default:
      return " >= ";
  }
}

/// The rows that a to-many relationship leads to, given the alias of its owner.
struct Members {
  std::string from;
  std::string condition;
};

Members membersOf(const RelationshipDescription& hop, const std::string& owner,
                  const std::string& member) {
  const std::string table = sqlName(tableName(*hop.destinationEntity));
  if (hop.storage == RelationshipStorage::inverseColumn) {
    return {table + " " + member,
            member + "." + sqlName(columnName(*hop.inverseRelationship)) + " = " + owner + "._id"};
  }
  const JoinTable pairs(hop);
  const std::string pair = member + "p";
  return {sqlName(pairs.name) + " " + pair + " CROSS JOIN " + table + " " + member + " ON " +
              member + "._id = " + pair + "." + pairs.memberColumn,
          pair + "." + pairs.ownerColumn + " = " + owner + "._id"};
}

enum SearchMode { kIgnoresCase = 1, kIgnoresMarks = 2, kBegins = 4 };

/// Whether the text, folded, contains the other or begins with it.
bool searchText(std::string_view text, std::string_view folded, int mode) {
  const TextFolding folding{(mode & kIgnoresCase) != 0, (mode & kIgnoresMarks) != 0};
  return foldedTextMatches(text, folded, folding, (mode & kBegins) != 0);
}

}  // namespace

void BoundValues::answer(const sqlite::Result& result, std::size_t index) const {
  const Value& value = values_[index];
  if (const auto* bytes = value.data()) {
    result.give(std::span(*bytes));
  } else if (value.holds<std::string>()) {
    result.give(std::string_view(value.string()));
  } else if (value.holds<std::int64_t>()) {
    result.give(*value.integer());
  } else if (value.holds<ObjectID>()) {
    result.give(value.objectID().key());
  } else if (!value.isNull()) {
    const auto date = value.date();
    const double real = date ? date->timeIntervalSinceReferenceDate() : *value.real();
    if (std::isnan(real)) return result.give(kNotANumber);
    result.give(real);
  }
}

SqlQuery::SqlQuery(const FetchRequest& request, const EntityDescription& entity,
                   const RowPlan& plan, QueryResult result, const std::string& store)
    : store_(store) {
  const std::string table = " FROM " + sqlName(tableName(entity)) + " t0";
  Scope scope;
  std::string where = plan.condition;
  if (request.predicate) {
    const BoundPredicate bound(request.predicate->root(), entity);
    where += (where.empty() ? "" : " AND ") + condition(scope, bound);
  }
  if (!scope.from.empty()) {
    // By itself the condition may begin at the other end of a path, where the order
    // of the results would hold it to this one.
    where = "t0._id IN (SELECT t0._id" + table + scope.from + " WHERE " + where + ")";
    scope = {};
  }
  const std::string order =
      result == QueryResult::count ? std::string() : ordering(scope, request, entity);
  constexpr std::size_t kEnough = 200;
  sql_.reserve(plan.columns.size() + scope.from.size() + where.size() + order.size() + kEnough);
  sql_ = "SELECT t0._id";
  if (result != QueryResult::count) sql_.append(", ").append(plan.entityNumber);
  if (result == QueryResult::rows) sql_.append(", t0._version").append(plan.columns);
  sql_.append(table).append(scope.from);
  if (!where.empty()) sql_.append(" WHERE ").append(where);
  sql_.append(order);
  if (request.fetchLimit != 0 || request.fetchOffset != 0) {
    const auto limit = static_cast<std::int64_t>(request.fetchLimit);
    sql_ += " LIMIT " + parameter(limit != 0 ? limit : -1);
    sql_ += " OFFSET " + parameter(static_cast<std::int64_t>(request.fetchOffset));
  }
  if (result == QueryResult::count) sql_ = "SELECT count(*) FROM (" + sql_ + ")";
  for (const Parameter& each : parameters_) {
    if (each.list) lists_.emplace_back(*each.list);
  }
}

void SqlQuery::bind(sqlite::Statement& statement) const {
  auto list = lists_.begin();
  int number = 0;
  for (const Parameter& parameter : parameters_) {
    ++number;
    if (parameter.list) {
      sqlite::bindValueList(statement, number, *list++);
    } else {
      bindValue(statement, number, parameter.value);
    }
  }
}

std::string SqlQuery::parameter(Value value) {
  parameters_.push_back({.value = std::move(value), .list = std::nullopt});
  return "?" + std::to_string(parameters_.size());
}

std::string SqlQuery::parameter(const std::vector<Value>& list) {
  std::vector<Value> values;
  values.reserve(list.size());
  std::ranges::transform(list, std::back_inserter(values),
                         [this](const Value& value) { return local(value); });
  parameters_.push_back({.value = {}, .list = std::move(values)});
  return "?" + std::to_string(parameters_.size());
}

/// Identities as the keys of this store's rows; those of no row as 0, which no row has.
Value SqlQuery::local(const Value& value) const {
  if (!value.holds<ObjectID>()) return value;
  const ObjectID id = value.objectID();
  return id.storeIdentifier() == store_ ? id.key() : std::int64_t{0};
}

std::string SqlQuery::join(Scope& scope, const std::string& from,
                           const RelationshipDescription& hop) {
  std::string& alias = scope.joins[{from, &hop}];
  if (!alias.empty()) return alias;
  alias = newAlias();
  scope.from += " LEFT JOIN " + sqlName(tableName(*hop.destinationEntity)) + " " + alias + " ON ";
  if (hop.storage == RelationshipStorage::column) {
    scope.from += alias + "._id = " + from + "." + sqlName(columnName(hop));
  } else {
    scope.from +=
        alias + "." + sqlName(columnName(*hop.inverseRelationship)) + " = " + from + "._id";
  }
  return alias;
}

std::string SqlQuery::valueAt(Scope& scope, std::string alias, const KeyPath& path,
                              std::size_t firstHop) {
  for (std::size_t i = firstHop; i < path.hops.size(); ++i) {
    const RelationshipDescription& hop = *path.hops[i];
    const bool isLast = i + 1 == path.hops.size() && path.attribute == nullptr;
    if (isLast && hop.storage == RelationshipStorage::column) {
      return alias + "." + sqlName(columnName(hop));
    }
    alias = join(scope, alias, hop);
  }
  return alias + "." + (path.attribute != nullptr ? sqlName(columnName(*path.attribute)) : "_id");
}

std::string SqlQuery::condition(Scope& scope, const BoundPredicate& predicate) {
  if (predicate.node->kind == PredicateNode::Kind::comparison) return comparison(scope, predicate);
  const bool all = predicate.node->kind == PredicateNode::Kind::conjunction;
  if (predicate.parts.empty()) return all ? "1" : "0";
  return joined(scope, predicate.parts, all ? " AND " : " OR ");
}

/// SQLite takes "a OR b OR c" for a tree that is as deep as it has parts, and trees only up
/// to a depth: halves in brackets make it as deep as their logarithm.
std::string SqlQuery::joined(Scope& scope, std::span<const BoundPredicate> parts, const char* by) {
  if (parts.size() == 1) return condition(scope, parts.front());
  const std::size_t half = parts.size() / 2;
  std::string first = joined(scope, parts.first(half), by);  // parameters count from left to right
  return "(" + first + by + joined(scope, parts.subspan(half), by) + ")";
}

std::string SqlQuery::comparison(Scope& scope, const BoundPredicate& predicate) {
  if (predicate.node->counts) return compare(memberCount(scope, predicate), predicate);
  if (predicate.node->any) return anyMember(scope, predicate);
  return compare(valueAt(scope, "t0", predicate.path, 0), predicate);
}

std::string SqlQuery::anyMember(Scope& scope, const BoundPredicate& predicate) {
  std::string owner = "t0";
  for (std::size_t i = 0; i < predicate.manyHop; ++i) {
    owner = join(scope, owner, *predicate.path.hops[i]);
  }
  const std::string member = newAlias();
  const Members members = membersOf(*predicate.path.hops[predicate.manyHop], owner, member);
  Scope inner;
  const std::string value = valueAt(inner, member, predicate.path, predicate.manyHop + 1);
  const std::string test = compare(value, predicate);
  return "EXISTS (SELECT 1 FROM " + members.from + inner.from + " WHERE " + members.condition +
         " AND " + test + ")";
}

std::string SqlQuery::memberCount(Scope& scope, const BoundPredicate& predicate) {
  std::string owner = "t0";
  for (std::size_t i = 0; i < predicate.manyHop; ++i) {
    owner = join(scope, owner, *predicate.path.hops[i]);
  }
  const Members members = membersOf(*predicate.path.hops[predicate.manyHop], owner, newAlias());
  return "(SELECT count(*) FROM " + members.from + " WHERE " + members.condition + ")";
}

std::string SqlQuery::compare(const std::string& expression, const BoundPredicate& predicate) {
  const PredicateNode& node = *predicate.node;
  switch (node.comparison) {
    case PredicateOperator::equal:
      if (node.value.isNull()) return expression + " IS NULL";
      return expression + " = " + parameter(local(node.value));
    case PredicateOperator::notEqual:
      if (node.value.isNull()) return expression + " IS NOT NULL";
      return expression + " IS NOT " + parameter(local(node.value));
    case PredicateOperator::in:
      return isIn(expression, node.values);
    case PredicateOperator::beginsWith:
    case PredicateOperator::contains: {
      if (node.value.isNull()) return "0";
      const TextFolding folding = predicate.folding();
      const bool begins = node.comparison == PredicateOperator::beginsWith;
      const int mode = (folding.ignoresCase ? kIgnoresCase : 0) |
                       (folding.ignoresMarks ? kIgnoresMarks : 0) | (begins ? kBegins : 0);
      return "zenivo_search(" + expression + ", " +
             parameter(foldedText(node.value.string(), folding)) + ", " + std::to_string(mode) +
             ")";
    }
    default:
      return expression + symbolOf(node.comparison) + parameter(local(node.value));
  }
}

std::string SqlQuery::isIn(const std::string& expression, const std::vector<Value>& list) {
  const std::string listed =
      expression + " IN (SELECT value FROM value_list(" + parameter(list) + "))";
  const bool holdsNothing = std::ranges::any_of(list, &Value::isNull);
  return holdsNothing ? "(" + listed + " OR " + expression + " IS NULL)" : listed;
}

std::string SqlQuery::ordering(Scope& scope, const FetchRequest& request,
                               const EntityDescription& entity) {
  std::string sql = " ORDER BY ";
  for (const SortDescriptor& descriptor : request.sortDescriptors) {
    const KeyPath path = resolveSortKeyPath(entity, descriptor.keyPath);
    sql += valueAt(scope, "t0", path, 0) + (descriptor.ascending ? ", " : " DESC, ");
  }
  return sql + "t0._id";
}

void addPredicateFunctions(sqlite::Connection& connection) {
  sqlite::addTextTest(connection, "zenivo_search", searchText);
}

}  // namespace zenivo
