// The tables of a store: names, columns and the statements that make them.  See
// docs/store-format.md.

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "store/model/ManagedObjectModel.h"
#include "store/sqlite/Statement.h"

namespace zenivo {

/// A name as an SQL identifier.
std::string sqlName(std::string_view name);

std::string tableName(const EntityDescription& entity);
std::string columnName(const PropertyDescription& property);
/// Which entity the object in a to-one column is of, where there is a choice.
std::string entityColumnName(const RelationshipDescription& relationship);
/// The place of a row among the members of an ordered relationship, which is the
/// inverse of `column`.
std::string orderColumnName(const RelationshipDescription& column);

bool isPolymorphic(const EntityDescription& entity);

/// The table of a many-to-many relationship as seen from one of its sides.
struct JoinTable {
  explicit JoinTable(const RelationshipDescription& relationship);

  std::string name;
  std::string ownerColumn;   ///< the side that `relationship` starts from
  std::string memberColumn;  ///< where it leads
  std::string memberEntityColumn;
  std::string orderColumn;  ///< place of the member among the owner's
};

/// The statements that make the tables and indices of a model, by the name of what
/// they make.
struct SchemaStatements {
  std::map<std::string, std::string> tables;
  std::map<std::string, std::string> indices;
};
SchemaStatements schemaStatements(const ManagedObjectModel& model);

/// The numbers by which rows name their entity.
class EntityNumbers {
 public:
  void add(std::int64_t number, const EntityDescription& entity);
  std::int64_t numberOf(const EntityDescription& entity) const { return numbers_.at(&entity); }
  /// nullptr for a number that no entity has.
  const EntityDescription* entityOf(std::int64_t number) const;

 private:
  std::map<const EntityDescription*, std::int64_t> numbers_;
  std::map<std::int64_t, const EntityDescription*> entities_;
};

/// How rows of an entity, or of it and its subentities, are read: after the columns
/// _id, _entity and _version come `columns`, of which each entity takes its own.
struct RowPlan {
  RowPlan(const EntityDescription& entity, bool includesSubentities, const EntityNumbers& numbers);

  struct Field {
    const PropertyDescription* property;
    int column;
    int entityColumn;  ///< of a relationship that has one, else -1
  };

  std::string entityNumber;  ///< of a row; a column only where there is a choice
  std::string columns;       ///< ", t0.…, t0.…"
  std::string condition;     ///< on _entity; empty when every row of the table will do
  std::map<const EntityDescription*, std::vector<Field>> fields;
};

/// SQLite has no form for not-a-number; this text sorts behind all numbers.
inline constexpr std::string_view kNotANumber = "nan";

/// Values as columns and parameters hold them.
Value readAttribute(const sqlite::Statement& row, int column, AttributeType type);
void bindValue(sqlite::Statement& statement, int parameter, const Value& value);

}  // namespace zenivo
