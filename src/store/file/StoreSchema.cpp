#include "store/file/StoreSchema.h"

#include <cmath>
#include <functional>

namespace zenivo {
namespace {

std::string fullName(const RelationshipDescription& relationship) {
  return relationship.entity->name() + "." + relationship.name;
}

const char* columnType(AttributeType type) {
  switch (type) {
    case AttributeType::integer16:
    case AttributeType::integer32:
    case AttributeType::integer64:
    case AttributeType::boolean:
      return "INTEGER";
    case AttributeType::doubleNumber:
    case AttributeType::floatNumber:
    case AttributeType::date:
      return "REAL";
    case AttributeType::string:
      return "TEXT";
    case AttributeType::binary:
    case AttributeType::transformable:
      return "BLOB";
  }
  return "";
}

/// "REFERENCES" with what the delete rule of the other side asks for.
std::string reference(const RelationshipDescription& column) {
  const bool cascades = column.inverseRelationship->deleteRule == DeleteRule::cascade;
  return " REFERENCES " + sqlName(tableName(*column.destinationEntity)) + "(_id) ON DELETE " +
         (cascades ? "CASCADE" : "SET NULL") + " DEFERRABLE INITIALLY DEFERRED";
}

std::string columnDefinitions(const EntityDescription& entity) {
  std::string sql;
  for (const PropertyDescription* property : entity.properties()) {
    if (property->entity != &entity || property->isTransient) continue;
    if (const auto* attribute = asAttribute(property)) {
      sql += ", " + sqlName(columnName(*property)) + " " + columnType(attribute->type);
      continue;
    }
    const auto& relationship = *asRelationship(property);
    if (relationship.storage != RelationshipStorage::column) continue;
    sql += ", " + sqlName(columnName(relationship)) + " INTEGER" + reference(relationship);
    if (isPolymorphic(*relationship.destinationEntity)) {
      sql += ", " + sqlName(entityColumnName(relationship)) + " INTEGER";
    }
    if (relationship.inverseRelationship->isOrdered()) {
      sql += ", " + sqlName(orderColumnName(relationship)) + " INTEGER";
    }
  }
  for (const EntityDescription* below : entity.subentities()) sql += columnDefinitions(*below);
  return sql;
}

void addIndex(SchemaStatements& statements, const std::string& name, bool unique,
              const std::string& columns) {
  const std::string table = name.substr(0, name.find('.'));
  statements.indices[name] = std::string("CREATE ") + (unique ? "UNIQUE " : "") + "INDEX " +
                             sqlName(name) + " ON " + sqlName(table) + "(" + columns + ")";
}

void addIndices(SchemaStatements& statements, const EntityDescription& entity) {
  for (const PropertyDescription* property : entity.properties()) {
    if (property->entity != &entity || property->isTransient) continue;
    const std::string column = sqlName(columnName(*property));
    const std::string name = tableName(entity) + "." + columnName(*property);
    const auto* attribute = asAttribute(property);
    const auto* relationship = asRelationship(property);
    if (attribute != nullptr && attribute->isIndexed) addIndex(statements, name, false, column);
    if (relationship == nullptr || relationship->storage != RelationshipStorage::column) continue;
    const RelationshipDescription& inverse = *relationship->inverseRelationship;
    const std::string order =
        inverse.isOrdered() ? ", " + sqlName(orderColumnName(*relationship)) : "";
    addIndex(statements, name, !inverse.isToMany(), column + order);
  }
}

void addJoinTable(SchemaStatements& statements, const RelationshipDescription& relationship) {
  const JoinTable forth(relationship);
  const JoinTable back(*relationship.inverseRelationship);
  const auto member = [](const JoinTable& side, const RelationshipDescription& to) {
    std::string sql = sqlName(side.memberColumn) + " INTEGER NOT NULL REFERENCES " +
                      sqlName(tableName(*to.destinationEntity)) +
                      "(_id) ON DELETE CASCADE DEFERRABLE INITIALLY DEFERRED";
    if (isPolymorphic(*to.destinationEntity)) {
      sql += ", " + sqlName(side.memberEntityColumn) + " INTEGER";
    }
    if (to.isOrdered()) sql += ", " + sqlName(side.orderColumn) + " INTEGER";
    return sql;
  };
  statements.tables[forth.name] = "CREATE TABLE " + sqlName(forth.name) + "(" +
                                  member(back, *relationship.inverseRelationship) + ", " +
                                  member(forth, relationship) +
                                  ", PRIMARY KEY(source, target)) WITHOUT ROWID";
  statements.indices[forth.name + ".target"] = "CREATE INDEX " + sqlName(forth.name + ".target") +
                                               " ON " + sqlName(forth.name) + "(target, source)";
}

}  // namespace

std::string sqlName(std::string_view name) {
  return '"' + std::string(name) + '"';
}

std::string tableName(const EntityDescription& entity) {
  return entity.rootEntity().name();
}

std::string columnName(const PropertyDescription& property) {
  const bool declaredAtRoot = property.entity->superentity() == nullptr;
  return declaredAtRoot ? property.name : property.entity->name() + "." + property.name;
}

std::string entityColumnName(const RelationshipDescription& relationship) {
  return columnName(relationship) + ":entity";
}

std::string orderColumnName(const RelationshipDescription& column) {
  return columnName(column) + ":order";
}

bool isPolymorphic(const EntityDescription& entity) {
  return !entity.subentities().empty();
}

JoinTable::JoinTable(const RelationshipDescription& relationship) {
  const RelationshipDescription& inverse = *relationship.inverseRelationship;
  const bool isForth = fullName(relationship) < fullName(inverse);
  name = fullName(isForth ? relationship : inverse);
  ownerColumn = isForth ? "source" : "target";
  memberColumn = isForth ? "target" : "source";
  memberEntityColumn = memberColumn + ":entity";
  orderColumn = memberColumn + ":order";
}

SchemaStatements schemaStatements(const ManagedObjectModel& model) {
  SchemaStatements statements;
  for (const auto& entity : model.entities()) {
    if (entity->superentity() == nullptr) {
      statements.tables[entity->name()] =
          "CREATE TABLE " + sqlName(entity->name()) +
          "(_id INTEGER PRIMARY KEY, _entity INTEGER NOT NULL, _version INTEGER NOT NULL" +
          columnDefinitions(*entity) + ")";
      if (isPolymorphic(*entity))
        addIndex(statements, entity->name() + "._entity", false, "_entity");
    }
    addIndices(statements, *entity);
    for (const RelationshipDescription* relationship : entity->relationships()) {
      const bool isOwn = relationship->entity == entity.get();
      if (isOwn && relationship->storage == RelationshipStorage::joinTable &&
          JoinTable(*relationship).ownerColumn == "source") {
        addJoinTable(statements, *relationship);
      }
    }
  }
  return statements;
}

void EntityNumbers::add(std::int64_t number, const EntityDescription& entity) {
  numbers_[&entity] = number;
  entities_[number] = &entity;
}

const EntityDescription* EntityNumbers::entityOf(std::int64_t number) const {
  const auto found = entities_.find(number);
  return found != entities_.end() ? found->second : nullptr;
}

RowPlan::RowPlan(const EntityDescription& entity, bool includesSubentities,
                 const EntityNumbers& numbers) {
  int next = 3;
  std::map<const PropertyDescription*, Field> known;
  std::string wanted;
  const std::function<void(const EntityDescription&)> include = [&](const EntityDescription& each) {
    wanted += (wanted.empty() ? "" : ", ") + std::to_string(numbers.numberOf(each));
    std::vector<Field>& own = fields[&each];
    for (const PropertyDescription* property : each.properties()) {
      const auto* relationship = asRelationship(property);
      const bool inRow =
          relationship == nullptr || relationship->storage == RelationshipStorage::column;
      if (!inRow || property->isTransient) continue;
      if (!known.contains(property)) {
        Field field{.property = property, .column = next++, .entityColumn = -1};
        columns += ", t0." + sqlName(columnName(*property));
        if (relationship != nullptr && isPolymorphic(*relationship->destinationEntity)) {
          field.entityColumn = next++;
          columns += ", t0." + sqlName(entityColumnName(*relationship));
        }
        known[property] = field;
      }
      own.push_back(known[property]);
    }
    if (!includesSubentities) return;
    for (const EntityDescription* below : each.subentities()) include(*below);
  };
  include(entity);
  const bool isWholeTable =
      &entity == &entity.rootEntity() && (includesSubentities || entity.subentities().empty());
  if (!isWholeTable) condition = "t0._entity IN (" + wanted + ")";
  // An index that gives the order of the results may then give all of an identity.
  entityNumber = fields.size() > 1 ? "t0._entity" : wanted;
}

Value readAttribute(const sqlite::Statement& row, int column, AttributeType type) {
  const sqlite::Stored stored = row.stored(column);
  if (stored == sqlite::Stored::null) return {};
  const auto real = [&] {
    return stored == sqlite::Stored::text ? std::nan("") : row.real(column);
  };
  switch (type) {
    case AttributeType::integer16:
    case AttributeType::integer32:
    case AttributeType::integer64:
    case AttributeType::boolean:
      return row.integer(column);
    case AttributeType::doubleNumber:
    case AttributeType::floatNumber:
      return real();
    case AttributeType::date:
      return Date::withTimeIntervalSinceReferenceDate(real());
    case AttributeType::string:
      return row.text(column);
    case AttributeType::binary:
    case AttributeType::transformable: {
      const auto bytes = row.bytes(column);
      return Data(bytes.begin(), bytes.end());
    }
  }
  return {};
}

void bindValue(sqlite::Statement& statement, int parameter, const Value& value) {
  struct Binder {
    sqlite::Statement& statement;
    int parameter;
    void operator()(std::monostate) const { statement.bindNull(parameter); }
    void operator()(std::int64_t whole) const { statement.bind(parameter, whole); }
    void operator()(double real) const {
      if (std::isnan(real)) return statement.bind(parameter, kNotANumber);
      statement.bind(parameter, real);
    }
    void operator()(const std::string& text) const {
      statement.bind(parameter, std::string_view(text));
    }
    void operator()(Date date) const { (*this)(date.timeIntervalSinceReferenceDate()); }
    void operator()(const Data& bytes) const { statement.bind(parameter, std::span(bytes)); }
    void operator()(const ObjectID& id) const { statement.bind(parameter, id.key()); }
    void operator()(const ObjectIDs&) const { statement.bindNull(parameter); }
  };
  value.visit(Binder{statement, parameter});
}

}  // namespace zenivo
