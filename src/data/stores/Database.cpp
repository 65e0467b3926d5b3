#include "data/stores/Database.h"

#include <fmt/format.h>

#include <system_error>

#include "data/stores/Duplicates.h"
#include "data/stores/Models.h"
#include "data/stores/UserEntities.h"
#include "foundation/Bundle.h"
#include "foundation/LocalizedString.h"
#include "foundation/Log.h"
#include "foundation/MainQueue.h"
#include "foundation/UserFolder.h"
#include "foundation/Uuid.h"

namespace zenivo {
namespace {

StoreOptions userStoreOptions() {
  StoreOptions options;
  options.migratesAutomatically = true;
  options.infersMapping = true;
  return options;
}

StoreOptions staticStoreOptions() {
  StoreOptions options;
  options.readOnly = true;
  return options;
}

const std::shared_ptr<ManagedObjectContext>& contextOn(
    const std::shared_ptr<PersistentStoreCoordinator>& coordinator,
    std::shared_ptr<ManagedObjectContext>& context) {
  if (!context) {
    context = std::make_shared<ManagedObjectContext>(ConcurrencyType::mainQueue);
    context->setPersistentStoreCoordinator(coordinator);
  }
  return context;
}

/// The user's folder is made with the first store in it; what fails is told by the
/// store that cannot be opened then.
void makeFolderOf(const std::filesystem::path& file) {
  std::error_code ignored;
  std::filesystem::create_directories(file.parent_path(), ignored);
}

}  // namespace

Database::Database(Locations locations) : locations_(std::move(locations)) {}

Database& Database::sharedInstance() {
  static Database database({userFolder() / "Zenivo.sqlite", resourcePath("ZenivoStatic.sqlite")});
  return database;
}

const std::shared_ptr<const ManagedObjectModel>& Database::managedObjectModel() const {
  return userModel();
}

const std::shared_ptr<const ManagedObjectModel>& Database::staticManagedObjectModel() const {
  return staticModel();
}

const std::shared_ptr<PersistentStoreCoordinator>& Database::persistentStoreCoordinator() {
  if (!user_.coordinator) {
    makeFolderOf(locations_.groupStore);
    open(user_, userModel(), locations_.groupStore, userStoreOptions(), "persistent_store");
  }
  return user_.coordinator;
}

const std::shared_ptr<PersistentStoreCoordinator>& Database::staticPersistentStoreCoordinator() {
  if (!static_.coordinator) {
    open(static_, staticModel(), locations_.staticStore, staticStoreOptions(),
         "static_persistent_store");
  }
  return static_.coordinator;
}

void Database::open(Stack& stack, const std::shared_ptr<const ManagedObjectModel>& model,
                    const std::filesystem::path& file, const StoreOptions& options,
                    std::string_view keyPrefix) {
  stack.coordinator = std::make_shared<PersistentStoreCoordinator>(model);
  Error error;
  if (stack.coordinator->addPersistentStore(file, options, &error)) return;
  stack.error = error;
  tellDelegate(error, keyPrefix);
}

void Database::tellDelegate(const Error& error, std::string_view keyPrefix) const {
  std::string details;
  for (const auto& [name, value] : error.userInfo) details += fmt::format(" {}={}", name, value);
  log(LogLevel::error, fmt::format("Unresolved error {},{}", error.description, details));
  const auto delegate = delegate_.lock();
  if (!delegate) return;
  const std::string message =
      localizedString(fmt::format("{}_unresolved_error_message_ios", keyPrefix), "Common");
  delegate->databasePersistentStoreCoordinatorDidGetError(
      fmt::format(fmt::runtime(message), error.description),
      localizedString(fmt::format("{}_unresolved_error_title", keyPrefix), "Common"));
}

const std::shared_ptr<ManagedObjectContext>& Database::managedObjectContext() {
  const bool isNew = !user_.context;
  const auto& context = contextOn(persistentStoreCoordinator(), user_.context);
  if (isNew) context->setMergePolicy(MergePolicy::mergeByPropertyStoreTrump);
  return context;
}

const std::shared_ptr<ManagedObjectContext>& Database::staticManagedObjectContext() {
  return contextOn(staticPersistentStoreCoordinator(), static_.context);
}

ZVManagedObjectContexts Database::managedObjectContexts() {
  const auto& user = managedObjectContext();  // opened, and reported, first
  return ZVManagedObjectContexts::managedObjectContextsWithUser(user, staticManagedObjectContext());
}

bool Database::hasUserStore() const {
  std::error_code ignored;
  return std::filesystem::exists(locations_.groupStore, ignored);
}

bool Database::isMigrationNeeded() const {
  const auto metadata =
      PersistentStoreCoordinator::metadataForPersistentStore(locations_.groupStore);
  return metadata && !isModelCompatibleWithStoreMetadata(*userModel(), *metadata);
}

bool Database::migrateDatabase(const std::filesystem::path& from,
                               const std::filesystem::path& toNewDatabase) {
  // A store to be moved must be there: opening would make a missing one.
  std::error_code ignored;
  if (!std::filesystem::exists(from, ignored)) return false;
  PersistentStoreCoordinator coordinator(userModel());
  Error error;
  if (coordinator.addPersistentStore(from, userStoreOptions(), &error) &&
      coordinator.migratePersistentStore(toNewDatabase, userStoreOptions(), &error)) {
    return true;
  }
  log(LogLevel::error, fmt::format("Unresolved error {}", error.description));
  return false;
}

void Database::performUpdatesFrom3To4() {
  const auto& context = managedObjectContext();
  for (const auto& entity : userModel()->entities()) {
    FetchRequest request;
    request.entityName = entity->name();
    request.predicate = Predicate::predicateWithFormat("uniqueIdentifier = NIL");
    request.includesSubentities = false;
    const auto objects = context->executeFetchRequest(request);
    if (!objects) continue;
    for (const ManagedObjectPtr& object : *objects) {
      auto& synchronized = static_cast<SynchronizedObject&>(*object);
      synchronized.set(SynchronizedObject::uniqueIdentifier, uuidString());
    }
  }
  context->save();
  context->reset();
}

void Database::removeDuplicatesWithCompletion(
    std::function<void(std::optional<Error>)> completion) {
  mainQueue().async([this, completion = std::move(completion)] {
    Error error;
    const auto duplicates = duplicateObjects(*managedObjectContext(), &error);
    if (!duplicates) return completion(error);
    if (duplicates->empty()) return completion(std::nullopt);
    for (const ManagedObjectPtr& object : *duplicates) managedObjectContext()->deleteObject(object);
    const bool saved = managedObjectContext()->save(&error);
    completion(saved ? std::nullopt : std::optional<Error>(error));
  });
}

}  // namespace zenivo
