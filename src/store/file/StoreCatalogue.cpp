#include "store/file/StoreCatalogue.h"

#include <algorithm>

#include "store/file/StoreSchema.h"
#include "store/model/ModelVersion.h"
#include "store/model/StoreError.h"
#include "store/sqlite/StoreFile.h"

namespace zenivo {
namespace {

Value readAny(const sqlite::Statement& row, int column) {
  switch (row.stored(column)) {
    case sqlite::Stored::integer:
      return row.integer(column);
    case sqlite::Stored::real:
      return row.real(column);
    case sqlite::Stored::text:
      return row.text(column);
    case sqlite::Stored::bytes:
      return readAttribute(row, column, AttributeType::binary);
    case sqlite::Stored::null:
      break;
  }
  return {};
}

}  // namespace

EntityRecord CatalogueEntity::record() const {
  auto record = parseEntityRecord(description);
  if (!record) {
    throw StoreFailure(StoreErrorCode::damagedFile,
                       "the store is damaged: its description of " + name + " cannot be read");
  }
  return *std::move(record);
}

const CatalogueEntity* StoreCatalogue::entityNamed(std::string_view name) const {
  const auto found = std::ranges::find(entities, name, &CatalogueEntity::name);
  return found != entities.end() ? &*found : nullptr;
}

std::map<std::string, Data> StoreCatalogue::entityVersionHashes() const {
  std::map<std::string, Data> hashes;
  for (const CatalogueEntity& entity : entities) {
    hashes[entity.name] = versionHashOf(entity.record());
  }
  return hashes;
}

bool StoreCatalogue::isOfVersion(const ManagedObjectModel& model) const {
  return isUpToDate(model) || entityVersionHashes() == model.entityVersionHashesByName();
}

bool StoreCatalogue::isUpToDate(const ManagedObjectModel& model) const {
  std::map<std::string, Data> hashes;
  for (const CatalogueEntity& entity : entities) hashes[entity.name] = entity.storedHash;
  return format == kStoreFormat && hashes == model.entityStoredHashesByName();
}

bool isEmptyDatabase(sqlite::Connection& connection) {
  return connection.integerOf("SELECT count(*) FROM sqlite_schema") == 0;
}

StoreCatalogue readCatalogue(sqlite::Connection& connection) {
  StoreCatalogue catalogue;
  catalogue.format = static_cast<int>(connection.integerOf("PRAGMA user_version"));
  if (catalogue.format > kStoreFormat) throw newerStore();
  catalogue.identifier = connection.textOf("SELECT value FROM _metadata WHERE key = 'identifier'");
  if (catalogue.identifier.empty()) {
    throw StoreFailure(StoreErrorCode::damagedFile, "the store is damaged: it has no identifier");
  }
  catalogue.saves = saveCount(connection);
  const sqlite::Connection::Lease entities =
      connection.prepare("SELECT number, name, hash, description FROM _entities ORDER BY number");
  while (entities->step()) {
    const auto hash = entities->bytes(2);
    catalogue.entities.push_back({.number = entities->integer(0),
                                  .name = std::string(entities->text(1)),
                                  .storedHash = Data(hash.begin(), hash.end()),
                                  .description = std::string(entities->text(3))});
  }
  const sqlite::Connection::Lease values = connection.prepare("SELECT key, value FROM _values");
  while (values->step()) catalogue.values[std::string(values->text(0))] = readAny(*values, 1);
  return catalogue;
}

void makeStore(sqlite::Connection& connection, const ManagedObjectModel& model,
               const std::string& identifier) {
  connection.execute("PRAGMA application_id=" + std::to_string(sqlite::kApplicationId));
  connection.execute("PRAGMA user_version=" + std::to_string(kStoreFormat));
  connection.execute("CREATE TABLE _metadata(key TEXT PRIMARY KEY, value) WITHOUT ROWID");
  connection.execute(
      "CREATE TABLE _entities(number INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, hash BLOB "
      "NOT NULL, description TEXT NOT NULL)");
  connection.execute("CREATE TABLE _values(key TEXT PRIMARY KEY, value) WITHOUT ROWID");
  {
    const sqlite::Connection::Lease statement = connection.prepare(
        "INSERT INTO _metadata(key, value) VALUES('identifier', ?1), ('nextKey', 1), ('saves', 0)");
    statement->bind(1, std::string_view(identifier));
    statement->run();
  }
  writeEntities(connection, model);
  const SchemaStatements statements = schemaStatements(model);
  for (const auto& [name, sql] : statements.tables) connection.execute(sql);
  for (const auto& [name, sql] : statements.indices) connection.execute(sql);
}

std::int64_t saveCount(sqlite::Connection& connection) {
  return connection.integerOf("SELECT value FROM _metadata WHERE key = 'saves'");
}

std::int64_t countSave(sqlite::Connection& connection) {
  return connection.integerOf(
      "INSERT INTO _metadata(key, value) VALUES('saves', 1) ON CONFLICT(key) DO UPDATE SET value = "
      "value + 1 RETURNING value");
}

void writeEntities(sqlite::Connection& connection, const ManagedObjectModel& model) {
  for (const auto& entity : model.entities()) {
    const sqlite::Connection::Lease statement = connection.prepare(
        "INSERT INTO _entities(name, hash, description) VALUES(?1, ?2, ?3) ON CONFLICT(name) DO "
        "UPDATE SET hash = excluded.hash, description = excluded.description");
    const std::string description = formatEntityRecord(recordOfEntity(*entity));
    statement->bind(1, std::string_view(entity->name()));
    statement->bind(2, std::span(entity->storedHash()));
    statement->bind(3, std::string_view(description));
    statement->run();
  }
}

std::set<std::string> columnsOf(sqlite::Connection& connection, const std::string& table) {
  std::set<std::string> columns;
  const auto rows = connection.prepare("SELECT name FROM pragma_table_info(?1)");
  rows->bind(1, std::string_view(table));
  while (rows->step()) columns.insert(std::string(rows->text(0)));
  return columns;
}

void writeValues(sqlite::Connection& connection, const std::map<std::string, Value>& values) {
  connection.execute("DELETE FROM _values");
  for (const auto& [key, value] : values) {
    const sqlite::Connection::Lease statement =
        connection.prepare("INSERT INTO _values(key, value) VALUES(?1, ?2)");
    statement->bind(1, std::string_view(key));
    bindValue(*statement, 2, value);
    statement->run();
  }
}

}  // namespace zenivo
