#include "store/file/StoreCheck.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "store/file/StoreCatalogue.h"
#include "store/file/StoreSchema.h"
#include "store/sqlite/StoreFile.h"

namespace zenivo {
namespace {

void addBrokenPages(sqlite::Connection& connection, std::vector<std::string>& faults) {
  const auto rows = connection.prepare("PRAGMA integrity_check(100)");
  while (rows->step()) {
    if (rows->text(0) != "ok") faults.emplace_back(rows->text(0));
  }
}

void addMissingDestinations(sqlite::Connection& connection, std::vector<std::string>& faults) {
  const auto rows = connection.prepare("SELECT * FROM pragma_foreign_key_check LIMIT 100");
  while (rows->step()) {
    faults.push_back(fmt::format("row {} of {} refers to a missing row of {}", rows->integer(1),
                                 rows->text(0), rows->text(2)));
  }
}

/// What typeof() may say of a column, as an SQL list.
const char* soundTypes(AttributeType type) {
  switch (type) {
    case AttributeType::integer16:
    case AttributeType::integer32:
    case AttributeType::integer64:
    case AttributeType::boolean:
      return "'integer'";
    case AttributeType::doubleNumber:
    case AttributeType::floatNumber:
    case AttributeType::date:
      return "'real', 'integer'";
    case AttributeType::string:
      return "'text'";
    case AttributeType::binary:
    case AttributeType::transformable:
      return "'blob'";
  }
  return "";
}

/// Whether all that the entity's own properties need is there.
bool hasColumns(const EntityDescription& entity, const std::set<std::string>& columns,
                std::vector<std::string>& faults) {
  bool isWhole = true;
  for (const PropertyDescription* property : entity.properties()) {
    const auto* relationship = asRelationship(property);
    const bool inRow =
        relationship == nullptr || relationship->storage == RelationshipStorage::column;
    if (property->isTransient || !inRow || columns.contains(columnName(*property))) continue;
    faults.push_back(
        fmt::format("the column {} of {} is missing", columnName(*property), entity.name()));
    isWhole = false;
  }
  return isWhole;
}

void addWrongValues(sqlite::Connection& connection, const EntityDescription& entity,
                    std::int64_t number, std::vector<std::string>& faults) {
  for (const AttributeDescription* attribute : entity.attributes()) {
    if (attribute->isTransient) continue;
    const std::string column = sqlName(columnName(*attribute));
    const auto rows = connection.prepare(fmt::format(
        "SELECT _id, typeof({0}) FROM {1} WHERE _entity = {2} AND {0} IS NOT NULL AND typeof({0}) "
        "NOT IN ({3}) AND NOT (typeof({0}) = 'text' AND {0} = '{4}' AND {5}) LIMIT 100",
        column, sqlName(tableName(entity)), number, soundTypes(attribute->type), kNotANumber,
        std::string_view(soundTypes(attribute->type)).starts_with("'real'") ? 1 : 0));
    while (rows->step()) {
      faults.push_back(fmt::format("{} of row {} of {} is of the type {}", attribute->name,
                                   rows->integer(0), entity.name(), rows->text(1)));
    }
  }
}

/// Rows of numbers that no entity of the table has, and the greatest key.
std::int64_t addStrayRows(sqlite::Connection& connection, const EntityDescription& root,
                          const std::string& numbers, std::vector<std::string>& faults) {
  const std::string table = sqlName(tableName(root));
  {
    const auto rows = connection.prepare(
        fmt::format("SELECT _id FROM {} WHERE _entity NOT IN ({}) LIMIT 100", table, numbers));
    while (rows->step()) {
      faults.push_back(
          fmt::format("row {} of {} is of no entity", rows->integer(0), tableName(root)));
    }
  }
  return connection.integerOf("SELECT max(_id) FROM " + table);
}

void addNumbers(const EntityDescription& entity, const StoreCatalogue& catalogue,
                std::string& numbers) {
  numbers += fmt::format("{}{}", numbers.empty() ? "" : ", ",
                         catalogue.entityNamed(entity.name())->number);
  for (const EntityDescription* below : entity.subentities()) {
    addNumbers(*below, catalogue, numbers);
  }
}

void addFaultsOfModel(sqlite::Connection& connection, const StoreCatalogue& catalogue,
                      const ManagedObjectModel& model, std::vector<std::string>& faults) {
  std::int64_t greatest = 0;
  for (const auto& entity : model.entities()) {
    const std::set<std::string> columns = columnsOf(connection, tableName(*entity));
    if (columns.empty()) {
      faults.push_back(fmt::format("the table of {} is missing", entity->name()));
      continue;
    }
    if (!hasColumns(*entity, columns, faults)) continue;
    addWrongValues(connection, *entity, catalogue.entityNamed(entity->name())->number, faults);
    if (entity->superentity() != nullptr) continue;
    std::string numbers;
    addNumbers(*entity, catalogue, numbers);
    greatest = std::max(greatest, addStrayRows(connection, *entity, numbers, faults));
  }
  const std::int64_t next =
      connection.integerOf("SELECT value FROM _metadata WHERE key = 'nextKey'");
  if (next <= greatest) {
    faults.push_back(fmt::format("the next key is {}, and {} is given already", next, greatest));
  }
}

}  // namespace

std::optional<std::vector<std::string>> faultsOfStore(const std::filesystem::path& file,
                                                      const ManagedObjectModel& model,
                                                      Error* error) {
  try {
    sqlite::FileOptions options;
    options.readOnly = true;
    const auto opened = sqlite::StoreFile::open(file, options);
    sqlite::StoreFile::Reading reading(*opened);
    reading.snapshot();
    std::vector<std::string> faults;
    addBrokenPages(*reading, faults);
    if (!faults.empty()) return faults;
    const StoreCatalogue catalogue = readCatalogue(*reading);
    if (!catalogue.isOfVersion(model)) throw newerStore();
    addFaultsOfModel(*reading, catalogue, model, faults);
    if (faults.empty()) addMissingDestinations(*reading, faults);
    return faults;
  } catch (...) {
    fail(error, errorOfCurrentException());
    return std::nullopt;
  }
}

}  // namespace zenivo
