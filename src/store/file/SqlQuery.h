// Fetch requests as SQL.

#pragma once

#include <list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "store/file/StoreSchema.h"
#include "store/predicates/BoundPredicate.h"
#include "store/predicates/FetchRequest.h"
#include "store/sqlite/Connection.h"
#include "store/sqlite/ValueTable.h"

namespace zenivo {

/// What a query is to give.
enum class QueryResult {
  rows,        ///< _id, _entity, _version and the columns of the plan
  identities,  ///< _id, _entity
  count,       ///< how many
};

/// Values that a statement reads as a table.
class BoundValues : public sqlite::ValueList {
 public:
  explicit BoundValues(const std::vector<Value>& values) : values_(values) {}
  std::size_t size() const override { return values_.size(); }
  void answer(const sqlite::Result& result, std::size_t index) const override;

 private:
  const std::vector<Value>& values_;
};

/// A request as one SELECT.
class SqlQuery {
 public:
  /// `store` is the identifier of the store, which outlives the query; identities of
  /// other stores match nothing.
  /// Throws std::invalid_argument for what the entity does not have.
  SqlQuery(const FetchRequest& request, const EntityDescription& entity, const RowPlan& plan,
           QueryResult result, const std::string& store);

  SqlQuery(const SqlQuery&) = delete;
  SqlQuery& operator=(const SqlQuery&) = delete;

  const std::string& sql() const { return sql_; }
  /// Binds the values; the query must outlive the statement's run.
  void bind(sqlite::Statement& statement) const;

 private:
  /// One SELECT, the outer one or one below EXISTS, with the tables that it joins.
  struct Scope {
    std::string from;
    std::map<std::pair<std::string, const RelationshipDescription*>, std::string> joins;
  };
  struct Parameter {
    Value value;
    std::optional<std::vector<Value>> list;
  };

  std::string newAlias() { return "t" + std::to_string(aliases_++); }
  std::string parameter(Value value);
  std::string parameter(const std::vector<Value>& list);
  Value local(const Value& value) const;
  std::string join(Scope& scope, const std::string& from, const RelationshipDescription& hop);
  std::string valueAt(Scope& scope, std::string alias, const KeyPath& path, std::size_t firstHop);
  std::string condition(Scope& scope, const BoundPredicate& predicate);
  std::string joined(Scope& scope, std::span<const BoundPredicate> parts, const char* by);
  std::string comparison(Scope& scope, const BoundPredicate& predicate);
  std::string anyMember(Scope& scope, const BoundPredicate& predicate);
  std::string memberCount(Scope& scope, const BoundPredicate& predicate);
  std::string compare(const std::string& expression, const BoundPredicate& predicate);
  std::string isIn(const std::string& expression, const std::vector<Value>& list);
  std::string ordering(Scope& scope, const FetchRequest& request, const EntityDescription& entity);

  const std::string& store_;
  std::string sql_;
  std::vector<Parameter> parameters_;
  std::list<BoundValues> lists_;
  int aliases_ = 1;  // t0 is the fetched table
};

/// Makes the functions that such queries call known to a connection.
void addPredicateFunctions(sqlite::Connection& connection);

}  // namespace zenivo
