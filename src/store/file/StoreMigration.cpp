#include "store/file/StoreMigration.h"

#include <algorithm>
#include <set>

#include "store/file/StoreCatalogue.h"
#include "store/file/StoreSchema.h"
#include "store/model/StoreError.h"

namespace zenivo {
namespace {

using sqlite::Connection;

/// What the file has of a kind ("table", "index"), by name, with the statement that
/// made it.  The store's own tables begin with an underscore and stay out of it.
std::map<std::string, std::string> existing(Connection& connection, std::string_view kind) {
  std::map<std::string, std::string> found;
  const Connection::Lease statement = connection.prepare(
      "SELECT name, sql FROM sqlite_schema WHERE type = ?1 AND sql IS NOT NULL AND substr(name, 1, "
      "1) <> '_'");
  statement->bind(1, kind);
  while (statement->step()) {
    found[std::string(statement->text(0))] = std::string(statement->text(1));
  }
  return found;
}

std::string numberOf(const std::string& entity) {
  return "(SELECT number FROM _entities WHERE name = '" + entity + "')";
}

/// One migration: its steps run in the order in which they stand here.
class Migration {
 public:
  Migration(Connection& connection, const ManagedObjectModel& model,
            const ModelDifference& difference)
      : connection_(connection),
        model_(model),
        difference_(difference),
        wanted_(schemaStatements(model)) {}

  void run() {
    dropRemoved();
    for (const auto& [table, sql] : wanted_.tables) bring(table, sql);
    removeRowsOfRemovedEntities();
    writeEntities(connection_, model_);
    fillAttributes();
    for (const auto& entity : model_.entities()) {
      for (const RelationshipDescription* relationship : entity->relationships()) {
        if (relationship->entity == entity.get()) mendRelationship(*relationship);
      }
    }
    bringIndices();
  }

 private:
  void dropRemoved() {
    for (const auto& [index, sql] : existing(connection_, "index")) {
      const auto wanted = wanted_.indices.find(index);
      if (wanted != wanted_.indices.end() && wanted->second == sql) continue;
      connection_.execute("DROP INDEX " + sqlName(index));
    }
    for (const auto& [table, sql] : existing(connection_, "table")) {
      if (!wanted_.tables.contains(table)) connection_.execute("DROP TABLE " + sqlName(table));
    }
  }

  /// Makes the table, or makes it anew with what the old one held.
  void bring(const std::string& table, const std::string& sql) {
    const auto present = existing(connection_, "table");
    const auto old = present.find(table);
    if (old == present.end()) return connection_.execute(sql);
    if (old->second == sql) return;
    const std::string fresh = table + ":new";
    const std::string head = "CREATE TABLE " + sqlName(table);
    connection_.execute("CREATE TABLE " + sqlName(fresh) + sql.substr(head.size()));
    std::string shared;
    const std::set<std::string> before = columnsOf(connection_, table);
    for (const std::string& column : columnsOf(connection_, fresh)) {
      if (before.contains(column)) shared += (shared.empty() ? "" : ", ") + sqlName(column);
    }
    connection_.execute("INSERT INTO " + sqlName(fresh) + "(" + shared + ") SELECT " + shared +
                        " FROM " + sqlName(table));
    connection_.execute("DROP TABLE " + sqlName(table));
    connection_.execute("ALTER TABLE " + sqlName(fresh) + " RENAME TO " + sqlName(table));
  }

  void removeRowsOfRemovedEntities() {
    for (const std::string& entity : difference_.removedEntities) {
      for (const auto& root : model_.entities()) {
        if (root->superentity() != nullptr) continue;
        connection_.execute("DELETE FROM " + sqlName(root->name()) +
                            " WHERE _entity = " + numberOf(entity));
      }
      connection_.execute("DELETE FROM _entities WHERE name = '" + entity + "'");
    }
  }

  void fillAttributes() {
    for (const AttributeDescription* attribute : difference_.attributesToFill) {
      fillAttribute(*attribute, *attribute->entity);
    }
  }

  void fillAttribute(const AttributeDescription& attribute, const EntityDescription& entity) {
    const std::string column = sqlName(columnName(attribute));
    {
      const Connection::Lease statement = connection_.prepare(
          "UPDATE " + sqlName(tableName(entity)) + " SET " + column + " = ?1 WHERE " + column +
          " IS NULL AND _entity = " + numberOf(entity.name()));
      bindValue(*statement, 1, attribute.defaultValue);
      statement->run();
    }
    for (const EntityDescription* below : entity.subentities()) fillAttribute(attribute, *below);
  }

  /// Lets go of rows that went with their entity and writes down entities where a
  /// column for them is new.
  void mendRelationship(const RelationshipDescription& relationship) {
    const std::string destination = sqlName(tableName(*relationship.destinationEntity));
    const bool polymorphic = isPolymorphic(*relationship.destinationEntity);
    std::string table;
    std::string column;
    std::string entityColumn;
    if (relationship.storage == RelationshipStorage::column) {
      table = sqlName(tableName(*relationship.entity));
      column = sqlName(columnName(relationship));
      entityColumn = sqlName(entityColumnName(relationship));
      connection_.execute("UPDATE " + table + " SET " + column + " = NULL WHERE " + column +
                          " NOT IN (SELECT _id FROM " + destination + ")");
    } else if (relationship.storage == RelationshipStorage::joinTable) {
      const JoinTable pairs(relationship);
      table = sqlName(pairs.name);
      column = pairs.memberColumn;
      entityColumn = sqlName(pairs.memberEntityColumn);
      connection_.execute("DELETE FROM " + table + " WHERE " + column +
                          " NOT IN (SELECT _id FROM " + destination + ")");
    } else {
      return;
    }
    if (!polymorphic) return;
    connection_.execute("UPDATE " + table + " SET " + entityColumn + " = (SELECT d._entity FROM " +
                        destination + " d WHERE d._id = " + table + "." + column + ") WHERE " +
                        column + " IS NOT NULL");
  }

  void bringIndices() {
    const auto present = existing(connection_, "index");
    for (const auto& [index, sql] : wanted_.indices) {
      if (!present.contains(index)) connection_.execute(sql);
    }
  }

  Connection& connection_;
  const ManagedObjectModel& model_;
  const ModelDifference& difference_;
  const SchemaStatements wanted_;
};

}  // namespace

void migrateStore(Connection& connection, const ModelDifference& difference,
                  const ManagedObjectModel& model) {
  Migration(connection, model, difference).run();
  if (connection.integerOf("SELECT count(*) FROM pragma_foreign_key_check") != 0) {
    throw StoreFailure(StoreErrorCode::damagedFile,
                       "the store is damaged: relationships lead nowhere");
  }
  connection.execute("PRAGMA user_version=" + std::to_string(kStoreFormat));
  countSave(connection);
}

}  // namespace zenivo
