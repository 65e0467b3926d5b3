#include "answers/library/StoreFiles.h"

#include <fmt/format.h>

#include <set>
#include <stdexcept>
#include <system_error>

#include "data/stores/Duplicates.h"
#include "data/stores/UserEntities.h"
#include "foundation/Bundle.h"
#include "foundation/MainQueue.h"
#include "store/file/StoreCheck.h"

namespace zenivo {
namespace {

std::optional<std::uintmax_t> sizeOf(const std::filesystem::path& file) {
  std::error_code error;
  const auto size = std::filesystem::file_size(file, error);
  return error ? std::nullopt : std::optional(size);
}

/// Everything but the number of objects, without opening the store for use.
StoreReport reportOn(std::string_view name, const std::filesystem::path& file,
                     const ManagedObjectModel& model) {
  StoreReport report{.name = std::string(name),
                     .file = file,
                     .bytes = sizeOf(file),
                     .identifier = {},
                     .counts = {}};
  if (!report.bytes) return report;
  if (const auto metadata = PersistentStoreCoordinator::metadataForPersistentStore(file)) {
    report.identifier = metadata->identifier;
    report.wasMigrated = !isModelCompatibleWithStoreMetadata(model, *metadata);
  }
  return report;
}

void countObjects(StoreReport& report, const ManagedObjectModel& model,
                  ManagedObjectContext& context) {
  for (const auto& entity : model.entities()) {
    FetchRequest request;
    request.entityName = entity->name();
    request.includesSubentities = false;
    Error error;
    const auto count = expectFetched(context.countForFetchRequest(request, &error), error);
    report.counts.emplace_back(entity->name(), count);
  }
}

void expectSound(const std::filesystem::path& file, const ManagedObjectModel& model) {
  Error error;
  const auto faults = faultsOfStore(file, model, &error);
  if (!faults) throw std::runtime_error(file.string() + ": " + error.description);
  if (faults->empty()) return;
  throw std::runtime_error(
      fmt::format("{} is damaged: {} ({} in all)", file.string(), faults->front(), faults->size()));
}

std::string nameOf(const ManagedObject& object) {
  const bool isCamera = object.entity().name() == CustomCamera::kEntityName;
  const auto key = isCamera ? CustomCamera::model.key : Planning::name.key;
  return object.valueForKey(key).string();
}

void removeDuplicates(Database& database) {
  bool isDone = false;
  std::optional<Error> failure;
  database.removeDuplicatesWithCompletion([&](std::optional<Error> error) {
    failure = std::move(error);
    isDone = true;
  });
  mainQueue().runUntil([&] { return isDone; });
  if (failure) throw std::runtime_error(failure->description);
}

}  // namespace

StoresReport answer(const StoresQuestion&, Stores& stores) {
  Database& database = stores.database();
  const ManagedObjectModel& userModel = *database.managedObjectModel();
  const ManagedObjectModel& staticModel = *database.staticManagedObjectModel();
  StoreReport user = reportOn("user", database.groupStoreURL(), userModel);
  StoreReport catalogue = reportOn("static", resourcePath("ZenivoStatic.sqlite"), staticModel);
  if (user.bytes) countObjects(user, userModel, stores.own());
  countObjects(catalogue, staticModel, stores.catalogue());
  return {{std::move(user), std::move(catalogue)}};
}

StoreCheckReport answer(const StoreCheckQuestion&, Stores& stores) {
  StoreCheckReport report;
  if (stores.hasOwn()) report.files.push_back(stores.database().groupStoreURL());
  report.files.push_back(resourcePath("ZenivoStatic.sqlite"));
  for (const auto& file : report.files) {
    const bool isOwn = file == stores.database().groupStoreURL();
    expectSound(file, isOwn ? *stores.database().managedObjectModel()
                            : *stores.database().staticManagedObjectModel());
  }
  return report;
}

DuplicatesReport answer(const DuplicatesQuestion& question, Stores& stores) {
  DuplicatesReport report;
  if (!stores.hasOwn()) return report;
  Error error;
  const auto duplicates = expectFetched(duplicateObjects(stores.own(), &error), error);
  std::set<const ManagedObject*> seen;  // one that repeats several is found several times
  for (const ManagedObjectPtr& object : duplicates) {
    if (!seen.insert(object.get()).second) continue;
    report.duplicates.push_back({std::string(object->entity().name()), nameOf(*object)});
  }
  report.areDeleted = question.deletes && !duplicates.empty();
  if (report.areDeleted) removeDuplicates(stores.database());
  return report;
}

Json json(const StoresReport& report) {
  Json json;
  for (const StoreReport& store : report.stores) {
    Json counts = Json::object();
    for (const auto& [entity, count] : store.counts) counts[entity] = count;
    json[store.name] = {{"file", store.file.string()},      {"exists", store.bytes.has_value()},
                        {"bytes", store.bytes.value_or(0)}, {"identifier", store.identifier},
                        {"migrated", store.wasMigrated},    {"objects", std::move(counts)}};
  }
  return json;
}

Json json(const StoreCheckReport& report) {
  Json stores = Json::array();
  for (const auto& file : report.files) {
    stores.push_back({{"file", file.string()}, {"sound", true}});
  }
  return {{"stores", std::move(stores)}};
}

Json json(const DuplicatesReport& report) {
  Json duplicates = Json::array();
  for (const auto& [entity, name] : report.duplicates) {
    duplicates.push_back({{"entity", entity}, {"name", name}});
  }
  return {{"duplicates", std::move(duplicates)}, {"deleted", report.areDeleted}};
}

}  // namespace zenivo
